#!/usr/bin/env python3
"""Computes every figure of the decision model from a data file, apart from the program's own code.

    evaluate.py FILE...        one JSON object a file, a line each

The file is opened read-only. A figure that fails is null, as the companion's `evaluate` writes it.
"""

import json
import sqlite3
import sys
from urllib.parse import quote

sys.dont_write_bytecode = True  # these scripts run from the source tree

from arithmetic import (Failure, currency_to_single, extended_multiply_add, in_currency, in_long,
                        plain, round_significant, shortest_double, shortest_single, single, single_text,
                        to_currency, to_long, truncated_quotient, val)

LEVELS = range(1, 7)
RESOURCES = range(1, 15)
SIZE_CLASSES = range(1, 10)
OBJECTIVE_ROOT, SAFETY_ROOT = 1, 2
THREATENED_ITEMS, ALTERNATIVES, FIRE_NAME = 23, 26, 11

# The members that hold a single and those that hold a double; every other number is whole.
SINGLES = frozenset("""weight unitCost expectedScore expectedSafetyScore expectedNVCLoss expectedLoss expectedCost
    estimatedCost expectedCategoryScore expectedWgtObjScore expectedRawObjScore expectedWgtSafetyScore
    expectedRawSafetyScore totalScore safetyScore categoryScore weightedObjScore rawObjScore weightedSafetyScore
    rawSafetyScore estimatedLoss nvcLoss impactPerAcre nvcResourceLoss itemImpact singleItemImpact costBySize
    costPerAcre srUseCost dailyCost dailyContainCost dailyControlCost adjustedCost useCost""".split())
DOUBLES = frozenset("""potentialLoss valueAtRisk totalValueAtRisk expectedProtection valueProtected
    singleItemProtected""".split())


def attempt(calculation, *arguments):
    """The result, or None when the calculation fails."""
    try:
        return calculation(*arguments)
    except Failure:
        return None


def kept(method):
    """Keeps a method's result, or its failure, for each set of arguments: the file does not change under us."""

    def wrapper(self, *arguments):
        store = self.__dict__.setdefault("_kept", {})
        key = (method.__name__, arguments)
        if key not in store:
            try:
                store[key] = (True, method(self, *arguments))
            except Failure as failure:
                store[key] = (False, str(failure))
        fine, result = store[key]
        if not fine:
            raise Failure(result)
        return result

    return wrapper


# --- the file -----------------------------------------------------------------------------------------------


class NotADataFile(Exception):
    """The file does not open as a data file of the current format and this edition."""


class DataFile:
    """The tables of one file, each read whole when it is first asked for."""

    def __init__(self, path):
        self._connection = sqlite3.connect("file:%s?mode=ro" % quote(path), uri=True)
        self._connection.row_factory = sqlite3.Row

    def close(self):
        self._connection.close()

    @kept
    def rows(self, table):
        try:
            return self._connection.execute('SELECT * FROM "%s"' % table).fetchall()
        except sqlite3.Error as error:
            raise Failure(str(error)) from error

    @kept
    def _by_key(self, table, columns):
        return {tuple(cell(row, column) for column in columns): row for row in self.rows(table)}

    def seek(self, table, columns, *key):
        """The row with this primary key, or None."""
        return self._by_key(table, columns).get(key)

    @kept
    def groups(self, table, column):
        """The rows of a table by the value of one column."""
        result = {}
        for row in self.rows(table):
            result.setdefault(cell(row, column), []).append(row)
        return result

    def property(self, name):
        """The text of a property, None without a row; names are not case-sensitive."""
        for row in self.rows("Properties"):
            if cell(row, "Property").lower() == name.lower():
                return read_text(row, "Value")
        return None


def cell(row, column):
    try:
        return row[column]
    except IndexError as error:
        raise Failure("no column " + column) from error


def read_text(row, column):
    value = None if row is None else cell(row, column)
    return "" if value is None else str(value)


def read_number(row, column):
    """The cell as a whole number or a double: nothing is 0, a text is the number at its start."""
    value = None if row is None else cell(row, column)
    if value is None:
        return 0
    return val(value) if isinstance(value, str) else value


def read_long(row, column):
    value = read_number(row, column)
    return in_long(value) if isinstance(value, int) else to_long(value)


def read_single(row, column):
    return single(float(read_number(row, column)))


def read_currency_single(row, column):
    """A money column read into currency and handed on as a single."""
    return currency_to_single(to_currency(read_number(row, column)))


def sort_key(value):
    """The order of the engine: null, numbers, texts."""
    if value is None:
        return (0, 0)
    return (2, value.encode()) if isinstance(value, str) else (1, value)


def in_order(rows, column, key_column):
    """Rows by a column; where they tie the lower key comes first."""
    return sorted(rows, key=lambda row: (sort_key(cell(row, column)), cell(row, key_column)))


# --- the stores ---------------------------------------------------------------------------------------------


class Objective:
    """One row of the objective tree or of the safety tree."""

    def __init__(self, key, row):
        self.key = key
        self.name = read_text(row, "Name")
        self.parent = read_long(row, "ParentKey")
        self.child = read_long(row, "ChildKey")
        self.priority = read_long(row, "Priority")


class ThreatenedItem:
    """A named thing at risk; its probability is always 100 in this edition."""

    probability = 100

    def __init__(self, key, name, row):
        self.key, self.name = key, name
        stored = 0.0 if row is None else round_significant(read_single(row, "PotentialLoss"), 3)
        self.potential_loss = 0.0 if stored < 0 else stored

    def value_at_risk(self):
        return round_significant(float(self.probability) * self.potential_loss / 100.0, 2)


class SRType:
    """A type of the list of suppression resources."""

    def __init__(self, row):
        self.key = read_long(row, "ItemKey")
        self.index = read_long(row, "ChildIndex")
        self.long_name = read_text(row, "LongName")
        self.short_name = read_text(row, "ShortName")
        self.unit_type = read_text(row, "UnitType")
        self.unit_name = read_text(row, "UnitName")
        self.unit_cost = read_currency_single(row, "UnitCost")


class Model:
    """The stores of one open file."""

    def __init__(self, data):
        self.data = data

    # objectives and safety issues

    @kept
    def objectives(self):
        return self._load_tree(OBJECTIVE_ROOT)

    @kept
    def safety_issues(self):
        return self._load_tree(SAFETY_ROOT)

    def _load_tree(self, root):
        members = {}
        self._load_branch(root, members)
        return members

    def _load_branch(self, key, members):
        """Adds a row, then its chain of children; a key met twice cannot be added."""
        objective = Objective(key, self._objective_row(key))
        if key in members:
            raise Failure("key %d is in the tree already" % key)
        members[key] = objective
        current = objective.child
        while current > 0:
            following = read_long(self._objective_row(current), "SiblingKey")
            self._load_branch(current, members)
            current = following

    def _objective_row(self, key):
        return self.data.seek("Objectives", ("Key",), key)

    @kept
    def total_objective_priority(self):
        return long_sum(o.priority for o in self.objectives().values() if o.parent > 1)

    @kept
    def objective_count(self):
        return sum(1 for o in self.objectives().values() if o.parent > 1)

    @kept
    def total_safety_priority(self):
        return long_sum(o.priority for o in self.safety_issues().values() if o.parent == SAFETY_ROOT)

    @kept
    def safety_issue_count(self):
        return sum(1 for o in self.safety_issues().values() if o.parent == SAFETY_ROOT)

    def weight(self, objective):
        if objective.key in (OBJECTIVE_ROOT, SAFETY_ROOT):
            return 1.0
        if objective.parent == SAFETY_ROOT:
            total, count = self.total_safety_priority(), self.safety_issue_count
        else:
            total, count = self.total_objective_priority(), self.objective_count
        if total != 0:
            return single(objective.priority / total)
        if count() == 0:
            raise Failure("division by zero")
        return single(1.0 / count())

    @kept
    def safety_weight(self, key):
        return self.weight(self.safety_issues()[key])

    # land units and value tables

    @kept
    def land_units(self):
        """Name by key, in key order; empty in most files."""
        rows = sorted(self.data.rows("FMZList"), key=lambda row: cell(row, "Key"))
        return {read_long(row, "Key"): read_text(row, "Name") for row in rows}

    @kept
    def gains_count(self):
        setting = self.data.property("UseNVCGains")
        return setting is not None and setting != "No"

    @kept
    def nvc_table(self, land_unit):
        """Cells by (resource, level)."""
        key = land_unit if self.land_units() else 0
        cells = {}
        for resource in RESOURCES:
            row = self.data.seek("NVCPerAcre", ("FMZKey", "ResourceIndex"), key, resource)
            for level in LEVELS:
                cells[resource, level] = read_single(row, "Fil%d" % level)
        return cells

    def filtered_cell(self, land_unit, resource, level):
        value = self.nvc_table(land_unit)[resource, level]
        return value if value <= 0 or self.gains_count() else 0.0

    @kept
    def fil_total(self, land_unit, level):
        total = 0.0
        for resource in RESOURCES:
            total = single(total + self.filtered_cell(land_unit, resource, level))
        return single(round_significant(total, 3))

    @kept
    def resource_value(self, land_unit, resource):
        return any(self.filtered_cell(land_unit, resource, level) != 0 for level in LEVELS)

    @kept
    def resource_value_anywhere(self, resource):
        return any(self.resource_value(key, resource) for key in self.land_units() or [0])

    def no_resource_values(self):
        return not any(self.resource_value_anywhere(resource) for resource in RESOURCES)

    def resource_name(self, index):
        return read_text(self.data.seek("NVCResources", ("ResourceIndex",), index), "ResourceName")

    @kept
    def acre_costs(self, land_unit):
        """(bounds, costs), each by size class."""
        key = land_unit if self.land_units() else 0
        bounds, costs = {}, {}
        for row_number in SIZE_CLASSES:
            row = self.data.seek("SuppressionPerAcreCost", ("FMZKey", "SizeClass"), key, row_number)
            bounds[row_number] = read_single(row, "TopSize")
            costs[row_number] = read_single(row, "Cost")
        return bounds, costs

    @kept
    def cost_for_size(self, land_unit, size):
        bounds, costs = self.acre_costs(land_unit)
        for row in SIZE_CLASSES:
            if size <= bounds[row]:
                return costs[row]
        for row in reversed(SIZE_CLASSES):
            if costs[row] > 0 and (row == 1 or bounds[row] > 0 or bounds[row - 1] > 0):
                return costs[row]
        return 0.0

    # threatened items, resource types

    @kept
    def threatened_items(self):
        rows = self.data.groups("Items", "ParentKey").get(THREATENED_ITEMS, [])
        items = {}
        for row in sorted(rows, key=lambda each: cell(each, "ItemKey")):
            key = read_long(row, "ItemKey")
            risk = self.data.seek("ValuesAtRisk", ("ItemKey",), key)
            items[key] = ThreatenedItem(key, read_text(row, "ItemName"), risk)
        return items

    def total_value_at_risk(self):
        total = 0.0
        for item in self.threatened_items().values():
            total += item.value_at_risk()
        return total

    @kept
    def sr_types(self):
        rows = in_order(self.data.rows("SRTypes"), "ChildIndex", "ItemKey")
        return {sr_type.key: sr_type for sr_type in map(SRType, rows)}

    # alternatives

    @kept
    def alternatives(self):
        rows = self.data.groups("Items", "ParentKey").get(ALTERNATIVES, [])
        ordered = in_order(rows, "ChildIndex", "ItemKey")
        return {read_long(row, "ItemKey"): Alternative(self, row) for row in ordered}

    @kept
    def extreme_outcome(self):
        return Outcome(self, None, 0, 1)

    def selected_alternative_key(self):
        stored = self.data.property("SelectedAlternativeKey")
        key = 0 if stored is None else to_long(val(stored))
        if key < 1:
            return 0
        if key not in self.alternatives():
            raise Failure("no such alternative")
        return key

    def most_cost_effective_key(self):
        best = None
        for alternative in self.alternatives().values():
            if best is None or alternative.expected_cost() < best.expected_cost():
                best = alternative
        return None if best is None else best.key


def long_sum(numbers):
    total = 0
    for number in numbers:
        total = in_long(total + number)
    return total


# --- an outcome ---------------------------------------------------------------------------------------------


class SRUse:
    """One line of an outcome's resource list."""

    def __init__(self, model, row):
        self.key = read_long(row, "ItemKey")
        self.item_index = read_long(row, "ItemIndex")
        self.type_key = read_long(row, "SRTypeKey")
        self.quantity = read_long(row, "Quantity")
        self.periods = read_long(row, "Periods")
        types = model.sr_types()
        if self.type_key not in types:
            raise Failure("no such resource type")
        self.sr_type = types[self.type_key]

    def cost(self):
        units = self.quantity
        if self.sr_type.unit_type == "time":
            units = in_long(self.quantity * self.periods)
        return single(float(units) * self.sr_type.unit_cost)


class BurnArea:
    """Where and how hot an outcome burns: its part in one land unit."""

    def __init__(self, model, outcome_key, land_unit):
        row = model.data.seek("OutcomeFMZs", ("OutcomeKey", "FMZKey"), outcome_key, land_unit)
        self.land_unit = land_unit
        self.portion = read_long(row, "Portion")
        self.fil_portions = [read_long(row, "FIL%dPortion" % level) for level in LEVELS]

    @kept
    def fil_percents(self):
        total = long_sum(self.fil_portions)
        if total == 0:
            return [16] * 6
        return [to_long(float(in_long(portion * 100)) / float(total)) for portion in self.fil_portions]


class Outcome:
    """One predicted end of the fire: a row of Outcomes and the lists below it."""

    def __init__(self, model, alternative, alternative_key, index):
        self.model, self.alternative, self.index = model, alternative, index
        row = self._find(alternative_key, index)
        self.key = read_long(row, "ItemKey")
        self.fire_size = read_single(row, "FireSize")
        self.contain_time = read_long(row, "ContainTime")
        self.control_time = read_long(row, "ControlTime")
        self.success = to_long(read_single(row, "Success"))
        self.daily_contain_cost = read_single(row, "DailyContainCost")
        self.daily_control_cost = read_single(row, "DailyControlCost")
        self.adjusted_cost = read_currency_single(row, "AdjustedCost")
        self.cost_source = read_long(row, "CostSource") or 1

    def _find(self, alternative_key, index):
        rows = self.model.data.groups("Outcomes", "ParentKey").get(alternative_key, [])
        rows = [row for row in rows if cell(row, "ChildIndex") == index]
        if not rows:
            raise Failure("no outcome row")
        return min(rows, key=lambda row: cell(row, "ItemKey"))

    # names

    def short_name(self):
        if self.alternative is None:
            return "Extreme Outcome"
        return {1: "Target", 2: "Fallback"}[self.index]

    def name_behind(self, label):
        return "Extreme Outcome" if self.alternative is None else label + " - " + self.short_name()

    def long_name(self):
        return self.name_behind(self.alternative.label() if self.alternative else "")

    def full_name(self):
        return self.name_behind(self.alternative.label()[:32] if self.alternative else "")

    def shown(self):
        return self.success != -1

    def fire_size_text(self):
        return single_text(self.fire_size)

    # ratings

    @kept
    def ratings(self):
        """(objective scores, safety scores), each by criterion key."""
        return (self._scores(self.model.objectives()), self._scores(self.model.safety_issues()))

    def _scores(self, members):
        seek = self.model.data.seek
        columns = ("OutcomeKey", "CriterionKey")
        return {key: read_single(seek("Scores", columns, self.key, key), "Value") for key in members}

    def _weighted_objective(self, key):
        return single(0.25 * self.ratings()[0][key])

    def _weighted_safety(self, key):
        return single(self.model.safety_weight(key) * self.ratings()[1][key])

    @kept
    def total_score(self):
        return self._score_sum(0, self._weighted_objective)

    @kept
    def safety_score(self):
        return self._score_sum(1, self._weighted_safety)

    def _score_sum(self, which, weighted):
        total = 0.0
        for key in self.ratings()[which]:
            total = single(total + weighted(key))
        return single(round_significant(total, 2))

    @kept
    def raw_objective(self, key):
        return single(round_significant(self.ratings()[0][key], 2))

    @kept
    def weighted_objective(self, key):
        return single(round_significant(self._weighted_objective(key), 2))

    @kept
    def raw_safety(self, key):
        return single(round_significant(self.ratings()[1][key], 2))

    @kept
    def weighted_safety(self, key):
        return single(round_significant(self._weighted_safety(key), 2))

    # burn areas

    @kept
    def burn_areas(self):
        """The areas of the land units, or the default area alone."""
        return [BurnArea(self.model, self.key, key) for key in self.model.land_units() or [0]]

    @kept
    def fmu_percents(self):
        areas = self.burn_areas()
        if not self.model.land_units():
            return []
        if len(areas) == 1:
            return [100]
        total = long_sum(area.portion for area in areas)
        if total == 0:
            return [to_long(100.0 / len(areas))] * len(areas)
        return [truncated_quotient(in_long(area.portion * 100), total) for area in areas]

    def fil_percents(self):
        return [attempt(area.fil_percents) for area in self.burn_areas()]

    def _average(self, term):
        """The mean of term(land unit, level) over the burned land, by portions and intensity levels."""
        total = 0.0
        with_units = bool(self.model.land_units())
        percents = self.fmu_percents()
        for position, area in enumerate(self.burn_areas()):
            share = [single(percents[position] / 100.0)] if with_units else []
            for level, percent in zip(LEVELS, area.fil_percents()):
                part = single(percent / 100.0)
                factors = [term(area.land_unit, level), *share, part]
                total = extended_multiply_add(factors, total)
        return total

    @kept
    def impact_per_acre(self):
        return self._average(self.model.fil_total)

    @kept
    def nvc_loss(self):
        return single(-round_significant(self.impact_per_acre() * self.fire_size, 2))

    @kept
    def nvc_resource_loss(self, resource):
        """Without land units the bare cells count, gains included."""
        model = self.model
        if model.land_units():
            term = lambda unit, level: model.filtered_cell(unit, resource, level)
        else:
            term = lambda unit, level: model.nvc_table(unit)[resource, level]
        return single(-round_significant(self._average(term) * self.fire_size, 3))

    # losses

    @kept
    def amounts(self):
        """The loss of each threatened item in ten-thousandths."""
        seek = self.model.data.seek
        result = {}
        for key in self.model.threatened_items():
            row = seek("ItemImpacts", ("OutcomeKey", "ItemKey"), self.key, key)
            result[key] = to_currency(read_currency_single(row, "ItemLoss"))
        return result

    def item_impact(self):
        total = 0.0
        for amount in self.amounts().values():
            total = currency_to_single(in_currency(to_currency(total) + amount))
        return total

    def single_item_impact(self, key):
        return currency_to_single(self.amounts()[key])

    def single_item_protected(self, key):
        """Nothing is protected in this edition; the list must stand all the same."""
        self.amounts()
        value = self.model.threatened_items()[key].value_at_risk()
        return round_significant(value * 0.0 / 100.0, 3)

    @kept
    def value_protected(self):
        total = 0.0
        for key in self.amounts():
            total = single(total + self.single_item_protected(key))
        return round_significant(total, 2)

    @kept
    def estimated_loss(self):
        return single(self.item_impact() + self.nvc_loss())

    # costs

    def _by_land_unit(self, term):
        if not self.model.land_units():
            return single(term(0))
        total = 0.0
        for percent, area in zip(self.fmu_percents(), self.burn_areas()):
            total = single(term(area.land_unit) * single(percent / 100.0) + total)
        return total

    def cost_per_acre(self):
        self.burn_areas()
        return self._by_land_unit(lambda unit: self.model.cost_for_size(unit, self.fire_size))

    @kept
    def cost_by_size(self):
        self.burn_areas()
        size = self.fire_size
        total = self._by_land_unit(lambda unit: size * self.model.cost_for_size(unit, size))
        return single(round_significant(total, 3))

    @kept
    def sr_uses(self):
        rows = self.model.data.groups("SRUses", "OutcomeKey").get(self.key, [])
        return [SRUse(self.model, row) for row in in_order(rows, "ItemIndex", "ItemKey")]

    @kept
    def sr_use_cost(self):
        total = 0.0
        for use in self.sr_uses():
            total = single(total + use.cost())
        return single(round_significant(total, 3))

    @kept
    def daily_cost(self):
        contain, control = float(self.contain_time), float(self.control_time)
        cost = single(self.daily_contain_cost * contain)
        cost = extended_multiply_add([self.daily_control_cost, control - contain], cost)
        return single(round_significant(cost, 3))

    @kept
    def estimated_cost(self):
        source = self.cost_source
        if source == 1:
            return self.cost_by_size()
        if source == 2:
            return self.sr_use_cost()
        if source == 4:
            return self.daily_cost()
        return self.adjusted_cost if source == 8 else 0.0


# --- an alternative -----------------------------------------------------------------------------------------


class Alternative:
    """One strategy: an item of the group of alternatives with its Target and its Fallback."""

    def __init__(self, model, row):
        self.model = model
        self.key = read_long(row, "ItemKey")
        self.name = read_text(row, "ItemName")
        self.heading = read_text(row, "Heading")

    def label(self):
        return self.name + ". " + self.heading

    @kept
    def outcomes(self):
        return [Outcome(self.model, self, self.key, 1), Outcome(self.model, self, self.key, 2)]

    @kept
    def percent(self, index):
        target, fallback = self.outcomes()
        if index == 1:
            return target.success
        if index == 2:
            if not fallback.shown():
                return 0
            share = in_long(in_long(100 - target.success) * fallback.success)
            return truncated_quotient(in_long(share + 50), 100)
        return in_long(in_long(100 - target.success) - self.percent(2))

    def _expected(self, figure, narrow):
        target, fallback = self.outcomes()
        total = 0.0
        for index, outcome in ((1, target), (2, fallback), (3, self.model.extreme_outcome())):
            total = narrow(total + figure(outcome) * float(self.percent(index)) / 100.0)
        return narrow(round_significant(total, 2))

    def expected(self, figure):
        return self._expected(figure, single)

    @kept
    def expected_cost(self):
        return single(round_significant(self.expected(Outcome.estimated_cost), 2))

    def expected_loss(self):
        return single(round_significant(self.expected(Outcome.estimated_loss), 2))

    def expected_nvc_loss(self):
        return single(round_significant(self.expected(Outcome.nvc_loss), 2))

    def expected_protection(self):
        return round_significant(self._expected(Outcome.value_protected, float), 2)

    def estimated_cost(self):
        return single(round_significant(self.outcomes()[0].estimated_cost(), 2))

    def estimated_size(self):
        size = to_long(float(self.outcomes()[0].fire_size_text()))
        return to_long(round_significant(float(size), 2))


# --- the document -------------------------------------------------------------------------------------------


def by_key(members, figure):
    """Figures by key for every member; None when the members cannot be had."""
    keys = attempt(members)
    if keys is None:
        return None
    return {str(key): attempt(figure, key) for key in keys}


def all_of(calculation, write):
    """A list of written objects, None when the list cannot be built."""
    members = attempt(calculation)
    if members is None:
        return None
    return [write(member) for member in (members.values() if isinstance(members, dict) else members)]


def objective_object(model, objective):
    return {"itemKey": objective.key, "itemName": objective.name, "parentKey": objective.parent,
            "priority": objective.priority, "weight": attempt(model.weight, objective)}


def item_object(item):
    return {"itemKey": item.key, "itemName": item.name, "potentialLoss": item.potential_loss,
            "probability": item.probability, "probabilityLabel": str(item.probability),
            "valueAtRisk": attempt(item.value_at_risk)}


def type_object(sr_type):
    return {"itemKey": sr_type.key, "index": sr_type.index, "longName": sr_type.long_name,
            "shortName": sr_type.short_name, "unitType": sr_type.unit_type, "unitName": sr_type.unit_name,
            "unitCost": sr_type.unit_cost}


def use_object(use):
    return {"itemKey": use.key, "itemIndex": use.item_index, "srTypeKey": use.type_key,
            "quantity": use.quantity, "timePeriods": use.periods, "useCost": attempt(use.cost)}


def days_text(days):
    return str(days) if days else ""


def outcome_object(model, outcome):
    return {
        "itemKey": outcome.key, "outcomeIndex": outcome.index, "shortName": outcome.short_name(),
        "longName": outcome.long_name(), "fullName": outcome.full_name(), "bShow": outcome.shown(),
        "fireSize": outcome.fire_size_text(),
        "containTime": outcome.contain_time, "containTimeString": days_text(outcome.contain_time),
        "controlTime": outcome.control_time, "controlTimeString": days_text(outcome.control_time),
        "success": outcome.success,
        "totalScore": attempt(outcome.total_score), "safetyScore": attempt(outcome.safety_score),
        "categoryScore": by_key(model.objectives, outcome.raw_objective),
        "weightedObjScore": by_key(model.objectives, outcome.weighted_objective),
        "rawObjScore": by_key(model.objectives, outcome.raw_objective),
        "weightedSafetyScore": by_key(model.safety_issues, outcome.weighted_safety),
        "rawSafetyScore": by_key(model.safety_issues, outcome.raw_safety),
        "estimatedLoss": attempt(outcome.estimated_loss), "nvcLoss": attempt(outcome.nvc_loss),
        "impactPerAcre": attempt(outcome.impact_per_acre),
        "nvcResourceLoss": [attempt(outcome.nvc_resource_loss, resource) for resource in RESOURCES],
        "fmuPercent": attempt(outcome.fmu_percents), "filPercent": attempt(outcome.fil_percents),
        "itemImpact": attempt(outcome.item_impact),
        "singleItemImpact": by_key(model.threatened_items, outcome.single_item_impact),
        "valueProtected": attempt(outcome.value_protected),
        "singleItemProtected": by_key(model.threatened_items, outcome.single_item_protected),
        "estimatedCost": attempt(outcome.estimated_cost), "costSource": outcome.cost_source,
        "costBySize": attempt(outcome.cost_by_size), "costPerAcre": attempt(outcome.cost_per_acre),
        "srUseCost": attempt(outcome.sr_use_cost), "dailyCost": attempt(outcome.daily_cost),
        "dailyContainCost": outcome.daily_contain_cost, "dailyControlCost": outcome.daily_control_cost,
        "adjustedCost": outcome.adjusted_cost,
        "srUses": all_of(outcome.sr_uses, use_object),
    }


def alternative_object(model, alternative):
    def expected(figure, *arguments):
        return attempt(alternative.expected, lambda outcome: figure(outcome, *arguments))

    def expected_by_key(members, figure):
        return by_key(members, lambda key: alternative.expected(lambda outcome: figure(outcome, key)))

    return {
        "itemKey": alternative.key, "itemName": alternative.name, "heading": alternative.heading,
        "label": alternative.label(),
        "outcomePercent": [attempt(alternative.percent, index) for index in (1, 2, 3)],
        "expectedScore": expected(Outcome.total_score),
        "expectedSafetyScore": expected(Outcome.safety_score),
        "expectedProtection": attempt(alternative.expected_protection),
        "expectedNVCLoss": attempt(alternative.expected_nvc_loss),
        "expectedLoss": attempt(alternative.expected_loss),
        "expectedCost": attempt(alternative.expected_cost),
        "estimatedCost": attempt(alternative.estimated_cost),
        "estimatedSize": attempt(alternative.estimated_size),
        "expectedCategoryScore": expected_by_key(model.objectives, Outcome.raw_objective),
        "expectedWgtObjScore": expected_by_key(model.objectives, Outcome.weighted_objective),
        "expectedRawObjScore": expected_by_key(model.objectives, Outcome.raw_objective),
        "expectedWgtSafetyScore": expected_by_key(model.safety_issues, Outcome.weighted_safety),
        "expectedRawSafetyScore": expected_by_key(model.safety_issues, Outcome.raw_safety),
        "outcomes": all_of(alternative.outcomes, lambda outcome: outcome_object(model, outcome)),
    }


def resource_object(model, index):
    return {"index": index, "name": attempt(model.resource_name, index),
            "bResourceValueAnywhere": attempt(model.resource_value_anywhere, index)}


def identity(data):
    """The format and the edition as they stand after opening; raises NotADataFile for any other file."""
    try:
        data_format, program = data.property("DataFormatID"), data.property("ProgramID")
    except Failure as failure:
        raise NotADataFile(str(failure)) from failure
    if data_format not in ("06.01.01", "06.00.beta") or program != "Basic":
        raise NotADataFile("format %s, edition %s" % (data_format, program))
    return {"dataFormatID": "06.01.01", "programID": program}


def document(data, shown_path):
    model = Model(data)
    gains = data.property("UseNVCGains")
    return {
        "file": shown_path, **identity(data), "useNVCGains": "No" if gains is None else gains,
        "fireName": attempt(lambda: read_text(data.seek("Items", ("ItemKey",), FIRE_NAME), "Body")),
        "selectedAlternativeKey": attempt(model.selected_alternative_key),
        "mostCostEffectiveAlternativeKey": attempt(model.most_cost_effective_key),
        "objectives": all_of(model.objectives, lambda o: objective_object(model, o)),
        "totalObjectivePriority": attempt(model.total_objective_priority),
        "objectiveCount": attempt(model.objective_count),
        "safetyIssues": all_of(model.safety_issues, lambda o: objective_object(model, o)),
        "totalSafetyPriority": attempt(model.total_safety_priority),
        "safetyIssueCount": attempt(model.safety_issue_count),
        "landUnits": attempt(lambda: [{"itemKey": k, "itemName": n} for k, n in model.land_units().items()]),
        "resources": [resource_object(model, index) for index in RESOURCES],
        "bNoResourceValues": attempt(model.no_resource_values),
        "threatenedItems": all_of(model.threatened_items, item_object),
        "totalValueAtRisk": attempt(model.total_value_at_risk),
        "srTypes": all_of(model.sr_types, type_object),
        "alternatives": all_of(model.alternatives, lambda a: alternative_object(model, a)),
        "extremeOutcome": attempt(lambda: outcome_object(model, model.extreme_outcome())),
    }


def evaluate(path, shown_path=None):
    """The whole document of one file as Python values."""
    data = DataFile(path)
    try:
        return document(data, path if shown_path is None else shown_path)
    finally:
        data.close()


def write_value(value, member=""):
    """JSON of a document; a number is written by the width that its member has."""
    if isinstance(value, dict):
        inner = [json.dumps(k) + ": " + write_value(v, member_of(k, member)) for k, v in value.items()]
        return "{" + ", ".join(inner) + "}"
    if isinstance(value, list):
        return "[" + ", ".join(write_value(v, member) for v in value) + "]"
    if isinstance(value, float):
        return write_float(value, member)
    return json.dumps(value, ensure_ascii=False)


def member_of(name, outer):
    """The member that says how wide a figure is: of an object by key, the one that holds the object."""
    return outer if name.lstrip("-").isdigit() else name


def write_float(value, member):
    if value == 0.0:
        return "0"
    shortest = shortest_double if member in DOUBLES else shortest_single
    return ("-" if value < 0 else "") + plain(*shortest(abs(value)))


def main(paths):
    status = 0
    for path in paths:
        try:
            print(write_value(evaluate(path)))
        except (NotADataFile, sqlite3.Error) as error:
            print(json.dumps({"file": path, "error": str(error)}))
            status = 1
    return status if paths else 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
