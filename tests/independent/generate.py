#!/usr/bin/env python3
"""Makes data files of every shape for the comparison of two calculations, each from a seed of its own.

    generate.py FOLDER COUNT [--seed N]

A file's name ends in its temper: calm, nulls, texts, far, ties, links, gaps, noaffinity, missing or refused. The
README says what each does.
"""

import argparse
import os
import random
import sqlite3
import struct

# Column kinds: X, I, A and K are keys; P a link or an order and L, both whole; N small; S single; C money; T text.
TABLES = {
    "Properties": "Property:X Value:T",
    "Items": "ItemKey:I ItemName:T Heading:T Body:T ItemText:T ParentKey:P ChildIndex:P",
    "Objectives": "Key:A Name:T Explanation:T ParentKey:L ChildKey:L SiblingKey:L Priority:L",
    "Outcomes": "ItemKey:I ItemName:T ParentKey:P ChildIndex:P Description:T FireSize:S ContainTime:L "
                "ControlTime:L Success:S SuccessRationale:T DailyContainCost:S DailyControlCost:S "
                "AdjustedCost:C CostSource:L CostRationale:T",
    "Scores": "OutcomeKey:K CriterionKey:K Value:S Description:T",
    "OutcomeFMZs": "OutcomeKey:K FMZKey:K Portion:L FIL1Portion:L FIL2Portion:L FIL3Portion:L FIL4Portion:L "
                   "FIL5Portion:L FIL6Portion:L",
    "ItemImpacts": "OutcomeKey:K ItemKey:K ItemLoss:C",
    "ValuesAtRisk": "ItemKey:I PotentialLoss:S Probability:N",
    "ValuesProtected": "OutcomeKey:K ItemKey:K Protection:N Description:T",
    "SRTypes": "ItemKey:A ParentKey:P ChildIndex:P LongName:T ShortName:T UnitType:T UnitName:T UnitCost:C",
    "SRUses": "ItemKey:I OutcomeKey:P ItemIndex:P SRTypeKey:L Quantity:L Periods:L",
    "FMZList": "Key:I FMZCode:T Name:T",
    "NVCResources": "ResourceIndex:I ResourceName:T",
    "NVCPerAcre": "FMZKey:K ResourceIndex:K Fil1:S Fil2:S Fil3:S Fil4:S Fil5:S Fil6:S",
    "SuppressionPerAcreCost": "FMZKey:K SizeClass:K TopSize:S Cost:S",
}
TABLES = {name: [column.split(":") for column in text.split()] for name, text in TABLES.items()}

DECLARED = {
    "X": "TEXT PRIMARY KEY COLLATE NOCASE", "I": "INTEGER PRIMARY KEY",
    "A": "INTEGER PRIMARY KEY AUTOINCREMENT", "K": "INTEGER NOT NULL", "P": "INTEGER", "L": "INTEGER",
    "N": "SMALLINT", "S": "REAL", "C": "CURRENCY", "T": "TEXT",
}

INDEXES = ["Items(ParentKey, ChildIndex)", "Outcomes(ParentKey, ChildIndex)", "SRUses(OutcomeKey, ItemIndex)",
           "Scores(CriterionKey)", "ItemImpacts(ItemKey)", "SRTypes(ChildIndex)"]

TEMPERS = ["calm"] * 30 + ["nulls"] * 14 + ["texts"] * 12 + ["far"] * 14 + ["ties"] * 14 + ["links"] * 5 + \
          ["gaps"] * 5 + ["noaffinity"] * 5 + ["missing", "refused"]

NUMBER_TEXTS = ["12 acres", "abc", "1e5", "", " 7", "3.5x", "-4.25 or so", "+2", ".5", "1,234", "1e", "$40", "1.2.3",
                "2e3 ha", "5 ", "-", ".", "0x10", "12abc", "1E+2", "7e-1", "--3", "9 9"]

FAR_WHOLE = [2**31, -2**31 - 1, 2**31 - 1, -2**31, 10**12, 2**62, 2147483647.5, 2147483647.4999, -2147483648.5,
             "99999999999 x"]
FAR_SINGLE = [3.5e38, -3.5e38, 1e300, 3.4028234663852886e38, 3.4028235677973362e38, 3.4028235677973366e38, 1e-46,
              1e-45, -1e-50, "1e400", "9e99 x", 3e38, 2.5e37, "1e-400 x"]
FAR_MONEY = [922337203685477, 922337203685478, -922337203685477.5808, 1e15, 9e14, "1e300", "9e99 x", 10**18,
             922337203685476.75, 1e-5, 9.2233718e14]

NAMES = ["Confine", "Full perimeter control", "", None, "Büro am Fluß, überall: Löschen und Halten bis Oktober",
         "A heading of more than thirty-two characters, cut in the full name", "exactly thirty-two characters..",
         'with "quotes" and \\ backslash', "tab\there", "line\nbreak", "长名字的方案", "/ slash", "|CR|"]


def narrow(value):
    """The nearest single, as a file would hold it."""
    return struct.unpack("<f", struct.pack("<f", value))[0]


def odd_part(value):
    """The mantissa of a single below 1 as an odd whole number."""
    mantissa = int(value * 2**60)
    return mantissa >> ((mantissa & -mantissa).bit_length() - 1)


def thin_tables():
    """(percent, cell mantissa, places, whole part): cell times percent / 100 is a hair above a half step.

    The product of the two 24-bit mantissas is whole * 2**places + half + 1 to 16, with places of 32 to 36: more
    than a double can hold beside a sum of 24 bits, and less than the extended format holds.
    """
    found = []
    for percent in range(1, 50):
        share = odd_part(narrow(percent / 100.0))
        for places in range(32, 37):
            inverse = pow(share, -1, 2**places)
            for hair in range(1, 2**(places - 31)):
                cell = inverse * (2**(places - 1) + hair) % 2**places
                if cell < 2**24:
                    found.append((percent, cell, places, cell * share >> places))
    return found


def thin_percents():
    """(percent, cost): cost times percent / 100 lies on a half step above an even tie of two digits.

    Divided last, it is exactly there and falls back to the tie; with the percent divided first it lands above.
    """
    found = []
    for count in range(10, 100, 2):
        for power in range(1, 8):
            tie = (count * 10 + 5) * 10**power
            step = 2.0 ** (tie.bit_length() - 24)
            for percent in range(1, 100):
                cost = (tie + step / 2) * 100 / percent
                exact = cost == narrow(cost) and cost * percent / 100 == tie + step / 2
                if exact and narrow(cost * (percent / 100)) != tie:
                    found.append((percent, cost))
    return found


THIN = thin_tables()
THIN_PERCENTS = thin_percents()


class Maker:
    """Draws the rows of one file."""

    def __init__(self, seed):
        self.rng = random.Random(seed)
        self.temper = self.rng.choice(TEMPERS)
        self.rows = {table: [] for table in TABLES}
        self.land_units = []
        self.outcomes = []
        self.items = []
        self.criteria = []
        self.types = []

    def add(self, table, **columns):
        self.rows[table].append(columns)

    def chance(self, share):
        return self.rng.random() < share

    def pick(self, *choices):
        return self.rng.choice(choices)

    # numbers

    def tie(self):
        """A value halfway between two steps of the rounding to two or three digits, or a power of ten."""
        rng = self.rng
        digits = rng.choice((2, 3))
        power = rng.randint(-1, 9)
        if self.chance(0.2):
            return float(10**max(power, 0))
        count = rng.randrange(10**(digits - 1), 10**digits)
        scaled = (count * 10 + 5) * 10**(power + 1)
        return scaled / 10**(digits + 2) * self.pick(1, 1, 1, 10)

    def amount(self, top=1e7):
        """Money or acres: nothing, round, ragged, on a tie, small, large."""
        rng = self.rng
        if self.temper == "ties" and self.chance(0.7):
            return self.tie()
        kind = rng.randrange(7)
        if kind == 0:
            return 0
        if kind == 1:
            return rng.randrange(1, 1000) * 10**rng.randrange(0, 5)
        if kind == 2:
            return self.tie()
        if kind == 3:
            return round(rng.uniform(0, top), rng.randrange(0, 6))
        if kind == 4:
            return narrow(10**rng.uniform(-3, 9))
        if kind == 5:
            return rng.randrange(1, 100000000)
        return rng.uniform(0, 1000)

    def score(self):
        rng = self.rng
        if self.temper == "ties" and self.chance(0.6):
            return self.pick(rng.randrange(0, 200) / 20, rng.randrange(0, 800) / 80, rng.randrange(0, 41) / 4)
        return self.pick(rng.randrange(0, 11), rng.randrange(0, 21) / 2, round(rng.uniform(0, 10), 1),
                         rng.uniform(0, 10), narrow(rng.uniform(0, 10)), -1, 10.5, 1e-7)

    def fire_size(self):
        return self.pick(0, 0.5, 1, 0.25, 2400, 1000, 1000.5, 999.9999, 5000, 12345.678, 16777216, 16777217,
                         12345678848.0, 1e9, 2147483647, 2147483648, 3e9, 2.5, 3.5, 99.5, -10, 1e-10, 1.5e20,
                         narrow(self.rng.uniform(0, 50000)), self.rng.randrange(1, 100000), self.amount())

    def success(self, shown):
        odd = (0, 1, 99, 100, 33, 50, 33.5, 34.5, None, -1, 101, -50, 1000, 2147483520, 30000, 47.49999, 1e5, 0.5,
               34.50000001, 33.4999999999)
        if not shown:
            return -1
        return self.rng.choice(odd) if self.chance(0.4) else self.rng.randrange(0, 101)

    def even_tie(self):
        """(tie, step of a single there): halfway between steps of three digits, and rounded down to an even one."""
        power = self.rng.randrange(1, 6)
        value = (self.rng.randrange(100, 1000, 2) * 10 + 5) * 10**power
        return float(value), 2.0 ** (value.bit_length() - 24)

    # the groups of tables

    def properties(self):
        data_format, program = "06.00.beta" if self.chance(0.03) else "06.01.01", "Basic"
        if self.temper == "refused":
            data_format, program = self.pick(("3.00.00", "Basic"), ("07.00.00", "Basic"), ("", "Basic"),
                                             (None, "Basic"), (data_format, "Standard"), (data_format, "Advanced"))
        self.add("Properties", Property="DataFormatID", Value=data_format)
        self.add("Properties", Property="ProgramID", Value=program)
        gains = self.pick("No", "No", "No", "Yes", "no", "No ", "", None, "True", "-1", "missing", "missing")
        if gains != "missing":
            self.add("Properties", Property=self.pick("UseNVCGains", "useNVCGAINS"), Value=gains)

    def objectives(self):
        rng = self.rng
        categories = self.pick(4, 4, 4, 4, 0, 1, 2, 3, 5, 6, 8)
        key, keys = 2, []
        parents = {}
        for _ in range(categories):
            key += rng.choice((1, 1, 1, 3))
            keys.append(key)
            parents[key] = 1
        below = self.pick(0, 0, 0, 1, 2, 5) if keys else 0
        for _ in range(below):
            key += 1
            parents[key] = rng.choice(keys + [k for k in parents if parents[k] != 1])
        issues = self.pick(0, 1, 2, 3, 4, 4, 7, 12)
        for _ in range(issues):
            key += rng.choice((1, 1, 2))
            parents[key] = 2
        self._objective_rows(parents)
        self.criteria = [1, 2] + list(parents)

    def _objective_rows(self, parents):
        """Rows with the links of first child and next sibling; the chains need not follow the keys."""
        below = self.pick([10], [10], [0], [0, 1, 5, 10, 30], [-5, 5, 7], [None, 3], [2**31 - 1, 10])
        issues = self.pick([10], [10], [0], [0, 10], [1, 2, 3, 7], [-3, 3], [None, 4], [2**30, 2**30, 5])
        chains = {}
        for key, parent in parents.items():
            chains.setdefault(parent, []).append(key)
        for chain in chains.values():
            if self.chance(0.3):
                self.rng.shuffle(chain)
        for root, name in ((1, "Objectives"), (2, "Safety")):
            self._objective_row(root, name, self.pick(0, 0, None), chains, 10)
        for key, parent in parents.items():
            self._objective_row(key, self.pick("Criterion %d" % key, None, "Überschrift"), parent, chains,
                                self.rng.choice(issues if parent == 2 else below))

    def _objective_row(self, key, name, parent, chains, priority):
        siblings = chains.get(parent or 0, [])
        place = siblings.index(key) if key in siblings else -1
        following = siblings[place + 1] if 0 <= place < len(siblings) - 1 else self.pick(0, 0, None, -1)
        child = chains[key][0] if chains.get(key) else self.pick(0, 0, None)
        self.add("Objectives", Key=key, Name=name, Explanation=self.pick(None, "{\\rtf1 }"), ParentKey=parent,
                 ChildKey=child, SiblingKey=following, Priority=priority)

    def spoil_links(self):
        """A circle, a row met twice or a key that points nowhere among the links of the two trees."""
        rows = self.rows["Objectives"]
        row = self.rng.choice(rows)
        keys = [each["Key"] for each in rows]
        kind = self.rng.randrange(5)
        if kind == 0:
            row["SiblingKey"] = row["Key"]
        elif kind == 1:
            row["ChildKey"] = self.rng.choice((1, 2, row["Key"]))
        elif kind == 2:
            row["SiblingKey"] = self.rng.choice(keys)
        elif kind == 3:
            row[self.pick("SiblingKey", "ChildKey")] = 987654
        elif row["Key"] > 2:
            rows.remove(row)

    def land(self):
        rng = self.rng
        count = self.pick(0, 0, 0, 0, 0, 1, 2, 3, 4, 6)
        self.land_units = sorted(rng.sample(range(0, 12), count))
        for key in self.land_units:
            self.add("FMZList", Key=key, FMZCode="Z%d" % key, Name=self.pick("Unit %d" % key, None, ""))
        for key in sorted(set(self.land_units) | {0}):
            if self.chance(0.93):
                self._nvc_rows(key)
            if self.chance(0.93):
                self._cost_rows(key)
        for index in range(1, 15):
            if self.chance(0.97):
                self.add("NVCResources", ResourceIndex=index, ResourceName=self.pick("Resource %d" % index, None))

    def _nvc_cell(self, style):
        rng = self.rng
        if style == "zero":
            return 0
        if style == "loss":
            return -rng.randrange(0, 500)
        if style == "thin":
            return rng.choice((0, 0, 0, 0, 0, 0, -12.5, 3))
        if style == "ragged":
            return rng.uniform(-2000, 500)
        if style == "tie":
            return self.pick(1, -1) * self.tie() / self.pick(1, 100)
        if style == "huge":
            return rng.uniform(-1, 1) * 10**rng.uniform(20, 38)
        return self.pick(100, -100, 0, 0.1, -0.3, 1e-3, 1234.5)

    def _nvc_rows(self, key):
        style = self.pick("zero", "zero", "loss", "thin", "ragged", "ragged", "tie", "huge", "mixed")
        if self.temper == "ties" and self.chance(0.5):
            style = "tie"
        for index in range(1, 15):
            if self.chance(0.97):
                cells = {"Fil%d" % level: self._nvc_cell(style) for level in range(1, 7)}
                self.add("NVCPerAcre", FMZKey=key, ResourceIndex=index, **cells)

    def _cost_rows(self, key):
        rng = self.rng
        style = self.pick("blank", "one", "open", "open", "full", "unsorted", "odd", "ties")
        bounds = [0.25, 9, 99, 299, 999, 4999, 9999, 49999, 0]
        costs = [round(rng.uniform(1, 9000), rng.randrange(0, 3)) for _ in range(9)]
        if style == "blank":
            bounds, costs = [0] * 9, [0] * 9
        elif style == "one":
            bounds, costs = [self.pick(0, 0, 1000)] + [0] * 8, [costs[0]] + [0] * 8
        elif style == "open":
            last = rng.randrange(1, 8)
            bounds = bounds[:last] + [0] * (9 - last)
            costs = costs[:last + self.pick(0, 1, 1, 2)]
            costs += [0] * (9 - len(costs))
        elif style == "unsorted":
            rng.shuffle(bounds)
            costs = [self.pick(0, cost, cost) for cost in costs]
        elif style == "odd":
            bounds = [self.pick(0, None, -5, 2400, 1000, 0.5, 1e9) for _ in range(9)]
            costs = [self.pick(0, None, -7, 12.5, 1e6, 3) for _ in range(9)]
        elif style == "ties":
            costs = [self.tie() for _ in range(9)]
        for row in range(1, 10):
            if self.chance(0.98):
                self.add("SuppressionPerAcreCost", FMZKey=key, SizeClass=row, TopSize=bounds[row - 1],
                         Cost=costs[row - 1])

    def alternatives(self):
        rng = self.rng
        self.add("Items", ItemKey=26, ItemName="Alternatives", ParentKey=None)
        if self.chance(0.9):
            self.add("Items", ItemKey=11, ItemName="Fire Name", Body=self.pick("Smith", "", None, "Ünder \"fire\""))
        count = self.pick(0, 1, 2, 2, 3, 3, 4, 5, 8)
        keys = rng.sample(range(300, 340), count)
        outcome_key = 1
        for place, key in enumerate(keys):
            index = place + 1 if self.chance(0.8) else self.pick(1, 2, 7, None, -3, 0)
            self.add("Items", ItemKey=key, ItemName=self.pick(chr(65 + place), None, ""), Heading=self.pick(*NAMES),
                     Body=None, ItemText=None, ParentKey=26, ChildIndex=index)
            shown = self.chance(0.4)
            for outcome_index in (1, 2):
                outcome_key += rng.choice((1, 1, 4))
                if self.temper != "gaps" or self.chance(0.9):
                    self._outcome_row(outcome_key, key, outcome_index,
                                      self.success(outcome_index == 1 or shown))
        if self.temper != "gaps" or self.chance(0.7):
            self._outcome_row(1, 0, 1, self.pick(0, 0, 0, -1, None, 40))
        if keys and self.chance(0.6):
            self.add("Properties", Property="SelectedAlternativeKey", Value=str(rng.choice(keys)))
        elif self.chance(0.7):
            self.add("Properties", Property="SelectedAlternativeKey",
                     Value=self.pick("", "0", "-5", "999", "12abc", None, "abc", "0.5", "1.5", " 301", "301.4 x",
                                     "99999999999", "3e2"))

    def _outcome_row(self, key, parent, index, success):
        rng = self.rng
        contain = self.pick(0, None, 3, 9, rng.randrange(1, 60), 1)
        control = self.pick(0, None, 10, 2, rng.randrange(1, 120), 21, -4)
        if self.chance(0.02):
            contain, control = rng.randrange(-2**31, 2**31), rng.randrange(-2**31, 2**31)
        source = self.pick(1, 2, 4, 8) if self.chance(0.9) else self.pick(0, None, 3, 5, 16, -1)
        self.add("Outcomes", ItemKey=key, ItemName=None, ParentKey=parent, ChildIndex=index,
                 Description=self.pick(None, "text"), FireSize=self.fire_size(), ContainTime=contain,
                 ControlTime=control, Success=success, SuccessRationale=None,
                 DailyContainCost=self.pick(None, self.amount(), self.amount()),
                 DailyControlCost=self.pick(None, self.amount(), self.amount()),
                 AdjustedCost=self.money(), CostSource=source, CostRationale=self.pick(None, "why"))
        self.outcomes.append(key)

    def money(self):
        """A cell of a money column: whole, four decimals, or finer than the column holds."""
        rng = self.rng
        return self.pick(None, 0, self.amount(), rng.randrange(0, 10**8), rng.randrange(0, 10**12) / 10000,
                         rng.uniform(0, 1e6), 0.00005, 0.00015, 123.45675, 0.03125, rng.randrange(1, 10**6) / 32768,
                         -rng.uniform(0, 1000))

    def burn_areas(self):
        self.portions = self.pick([0], [1], [50], [50, 50, 1, 1, 0, 0, 33, 7, None, 12, 99, 100])
        for outcome in self.outcomes:
            for unit in sorted(set(self.land_units) | ({0} if self.chance(0.95) else set())):
                if self.chance(0.95):
                    self._burn_area(outcome, unit)

    def _burn_area(self, outcome, unit):
        rng = self.rng
        portion = rng.choice(self.portions)
        if self.chance(0.02):
            portion = self.pick(21474836, 21474837, 2**31 - 1, -50, -1)
        style = rng.randrange(6)
        levels = [[0, 0, 0, 5, 0, 0], [0] * 6, [1] * 6, [rng.randrange(0, 9) for _ in range(6)],
                  [rng.randrange(0, 200) for _ in range(6)], [1, 1, 0, 0, 1, 5]][style]
        if self.chance(0.02):
            levels = [self.pick(0, 5, -5, -1, 21474836, 21474837, 2**31 - 1, -2**31) for _ in range(6)]
        self.add("OutcomeFMZs", OutcomeKey=outcome, FMZKey=unit, Portion=portion,
                 **{"FIL%dPortion" % (i + 1): level for i, level in enumerate(levels)})

    def scores(self):
        roots = self.pick(0.0, 0.0, 0.0, 0.5)
        for outcome in self.outcomes:
            rated = self.pick(1.0, 1.0, 0.7, 0.0)
            for criterion in self.criteria:
                share = roots if criterion <= 2 else rated
                if self.chance(share):
                    self.add("Scores", OutcomeKey=outcome, CriterionKey=criterion,
                             Value=self.pick(None, *[self.score()] * 9), Description=None)

    def threatened(self):
        rng = self.rng
        count = self.pick(0, 0, 1, 2, 4, 7, 20)
        self.items = rng.sample(range(400, 460), count)
        for place, key in enumerate(self.items):
            self.add("Items", ItemKey=key, ItemName=self.pick("Item %d" % key, None, "Scheune"), ParentKey=23,
                     ChildIndex=self.pick(place + 1, None, 1), ItemText=self.pick(None, "note"))
            if self.chance(0.8):
                self.add("ValuesAtRisk", ItemKey=key, PotentialLoss=self.pick(None, -500, *[self.amount()] * 6),
                         Probability=self.pick(100, 25, None))
            for outcome in self.outcomes:
                if self.chance(0.6):
                    self.add("ItemImpacts", OutcomeKey=outcome, ItemKey=key, ItemLoss=self.money())
                if self.chance(0.05):
                    self.add("ValuesProtected", OutcomeKey=outcome, ItemKey=key, Protection=50, Description=None)

    def resources(self):
        rng = self.rng
        self.types = list(range(1, 1 + self.pick(0, 2, 5, 12, 35)))
        for key in self.types:
            self.add("SRTypes", ItemKey=key, ParentKey=None,
                     ChildIndex=key if self.chance(0.8) else self.pick(None, 1, 3, -1),
                     LongName=self.pick("Type %d" % key, None), ShortName="T%d" % key,
                     UnitType=self.pick("time", "time", "time", "item", "item", "Time", None, "time "),
                     UnitName=self.pick("days", "loads", None), UnitCost=self.money())
        use_key = 0
        for outcome in self.outcomes:
            for line in range(self.pick(0, 0, 1, 3, 8) if self.types else 0):
                use_key += 1
                self._use(use_key, outcome, line + 1 if self.chance(0.8) else self.pick(None, 1, 2, 9))

    def _use(self, key, outcome, index):
        rng = self.rng
        quantity, periods = self.pick(1, 2, 6, 550, None, 0), self.pick(1, 3, 14, None, 0, rng.randrange(1, 30))
        if self.chance(0.01):
            quantity, periods = self.pick(50000, 46341, 2**31 - 1, -46341, 65536), self.pick(50000, 46341, 1, 32768)
        kind = rng.choice(self.types) if self.temper != "gaps" or self.chance(0.97) else 777
        self.add("SRUses", ItemKey=key, OutcomeKey=outcome, ItemIndex=index, SRTypeKey=kind, Quantity=quantity,
                 Periods=periods)

    # sums that only the told widths get right

    def thin_sums(self):
        """Figures whose three digits turn on the width of one step."""
        outcome = self.rng.choice(self.rows["Outcomes"])
        self.pick(self._thin_contain, self._thin_control)(outcome)
        outcome["CostSource"] = 4
        self.pick(self._thin_average, self._thin_total)(outcome)
        if self.chance(0.4):
            self._thin_expected(outcome["ParentKey"])

    def _thin_expected(self, alternative):
        """An expected cost whose two digits turn on dividing after multiplying: the Target's cost alone."""
        percent, cost = self.rng.choice(THIN_PERCENTS)
        for row in self.rows["Outcomes"]:
            if row["ParentKey"] in (0, alternative):
                target = row["ParentKey"] != 0 and row["ChildIndex"] == 1
                row.update(CostSource=8, AdjustedCost=cost if target else 0,
                           Success=percent if target else -1 if row["ParentKey"] else 0)

    def _thin_control(self, outcome):
        """The second step of the daily cost, a hair above a half step of the first."""
        tie, step = self.even_tie()
        days = 130561  # times 131585 is 2**34 + 1
        outcome.update(ContainTime=1, ControlTime=1 + days, DailyContainCost=tie,
                       DailyControlCost=131585 * step * 2.0**-35)

    def _thin_contain(self, outcome):
        """The first step of the daily cost, a trace above a tie that its narrowing takes away; half a step more."""
        for _ in range(50):
            tie, step = self.even_tie()
            days = self.pick(3, 7, 11, 13, 19)
            cost = narrow(tie / days)
            if cost * days > tie and narrow(cost * days) == tie:
                outcome.update(ContainTime=days, ControlTime=days + 1, DailyContainCost=cost,
                               DailyControlCost=step / 2)
                return

    def _first_area(self, outcome):
        """The outcome's area and the value rows of its land unit."""
        areas = [row for row in self.rows["OutcomeFMZs"] if row["OutcomeKey"] == outcome["ItemKey"]]
        areas = [row for row in areas if not self.land_units or row["FMZKey"] in self.land_units]
        if not areas:
            return None, []
        return areas[0], [row for row in self.rows["NVCPerAcre"] if row["FMZKey"] == areas[0]["FMZKey"]]

    def _thin_average(self, outcome):
        """A resource's value per acre: half the first cell, and a share of the second a hair above a half step."""
        area, values = self._first_area(outcome)
        if not values or len(self.land_units) > 1:
            return
        tie, step = self.even_tie()
        percent, cell, places, whole = self.rng.choice(THIN)
        outcome["FireSize"] = self.pick(1, 2, 1024)
        area.update(FIL1Portion=50, FIL2Portion=percent, FIL3Portion=50 - percent, FIL4Portion=0, FIL5Portion=0,
                    FIL6Portion=0)
        share = narrow(percent / 100.0)
        scale = step * 2.0**-places / (share / odd_part(share))
        values[0].update(Fil1=-2 * (tie - whole * step), Fil2=-cell * scale, Fil3=0, Fil4=0, Fil5=0, Fil6=0)

    def _thin_total(self, outcome):
        """A level's total over the resources: two half steps that fall away one after the other."""
        _, values = self._first_area(outcome)
        if len(values) < 14:
            return
        tie, step = self.even_tie()
        cells = [-tie, -step / 2, -step / 2] + [0] * 11
        level = "Fil%d" % self.rng.randrange(1, 7)
        for row, value in zip(values, cells):
            row[level] = value

    # tempers

    def cells(self, kinds):
        """Every (row, column, kind) whose column is of one of these kinds."""
        for table, columns in TABLES.items():
            if table == "Properties":
                continue
            for column, kind in columns:
                if kind in kinds:
                    for row in self.rows[table]:
                        yield row, column, kind

    def few_cells(self, kinds, most):
        cells = list(self.cells(kinds))
        return self.rng.sample(cells, min(len(cells), self.rng.randrange(1, most + 1)))

    def spoil(self):
        rng = self.rng
        if self.temper == "ties" and self.rows["Outcomes"]:
            self.thin_sums()
        elif self.temper == "nulls":
            for row, column, _ in self.few_cells("PLNSCT", 60):
                row[column] = None
        elif self.temper == "texts":
            for row, column, _ in self.few_cells("LNSC", 25):
                row[column] = rng.choice(NUMBER_TEXTS)
        elif self.temper == "far":
            for row, column, kind in self.few_cells("LSSC", 4):
                row[column] = rng.choice({"L": FAR_WHOLE, "S": FAR_SINGLE, "C": FAR_MONEY}[kind])
        elif self.temper == "links":
            self.spoil_links()
        elif self.temper == "noaffinity":
            for row, column, _ in self.few_cells("LS", 40):
                row[column] = rng.choice([12, 3.5, 2.5, "7", "4.5", "1e2", 0, 1000000007, -2.5])

    def make(self):
        self.properties()
        self.objectives()
        self.land()
        self.alternatives()
        self.burn_areas()
        self.scores()
        self.threatened()
        self.resources()
        self.spoil()
        return self

    # the file

    def write(self, path):
        connection = sqlite3.connect(path, isolation_level=None)
        connection.execute("PRAGMA journal_mode=OFF")
        connection.execute("PRAGMA synchronous=OFF")
        connection.execute("BEGIN")
        dropped = self.rng.choice([t for t in TABLES if t != "Properties"]) if self.temper == "missing" else None
        for table, columns in TABLES.items():
            if table != dropped:
                connection.execute(self._ddl(table, columns))
                self._insert(connection, table, columns)
        if self.chance(0.5) and not dropped:
            for number, columns in enumerate(INDEXES):
                connection.execute("CREATE INDEX Index%d ON %s" % (number, columns))
        connection.execute("PRAGMA application_id = %d" % 0x51454C36)
        connection.execute("COMMIT")
        connection.close()

    def _ddl(self, table, columns):
        declared = dict(DECLARED, L="", S="") if self.temper == "noaffinity" and table != "Objectives" else DECLARED
        parts = ['"%s" %s' % (column, declared[kind]) for column, kind in columns]
        keys = ['"%s"' % column for column, kind in columns if kind == "K"]
        if not keys:
            return 'CREATE TABLE "%s" (%s)' % (table, ", ".join(parts))
        return 'CREATE TABLE "%s" (%s, PRIMARY KEY (%s)) WITHOUT ROWID' % (table, ", ".join(parts), ", ".join(keys))

    def _insert(self, connection, table, columns):
        names = ", ".join('"%s"' % column for column, _ in columns)
        marks = ", ".join("?" for _ in columns)
        rows = list(self.rows[table])
        self.rng.shuffle(rows)
        connection.executemany('INSERT INTO "%s" (%s) VALUES (%s)' % (table, names, marks),
                               [[row.get(column) for column, _ in columns] for row in rows])


def generate(folder, count, seed):
    """Writes so many files and returns their paths."""
    os.makedirs(folder, exist_ok=True)
    paths = []
    for number in range(count):
        maker = Maker("%s-%d" % (seed, number)).make()
        path = os.path.join(folder, "%06d-%s.qel" % (number, maker.temper))
        if os.path.exists(path):
            os.remove(path)
        maker.write(path)
        paths.append(path)
    return paths


def main():
    parser = argparse.ArgumentParser(description="Makes data files of every shape.")
    parser.add_argument("folder")
    parser.add_argument("count", type=int)
    parser.add_argument("--seed", default="1")
    arguments = parser.parse_args()
    paths = generate(arguments.folder, arguments.count, arguments.seed)
    print("%d files in %s" % (len(paths), arguments.folder))


if __name__ == "__main__":
    main()
