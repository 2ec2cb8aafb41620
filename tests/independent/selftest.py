#!/usr/bin/env python3
"""Tests of the independent calculation itself: its arithmetic on known cases and on random bits.

    selftest.py
"""

import ctypes
import math
import os
import random
import sqlite3
import struct
import sys
import tempfile
import unittest
from fractions import Fraction

sys.dont_write_bytecode = True  # these scripts run from the source tree

from arithmetic import (Failure, currency_to_single, extended_multiply_add, round_significant, shortest_single,
                        single, single_text, to_currency, to_long, truncated_quotient, val)
from compare import Literal, differences, parse
from evaluate import NotADataFile, evaluate, write_value
from generate import Maker


def random_single(rng):
    """Any finite single, all exponents alike."""
    bits = rng.randrange(0, 0x7F800000) | rng.choice((0, 1 << 31))
    return struct.unpack("<f", struct.pack("<I", bits))[0]


def rounded(exact, bits, lowest):
    """An exact value cut to so many bits, halves to even; the last place is not below 2**lowest."""
    if exact == 0:
        return exact
    place = max(exact.numerator.bit_length() - exact.denominator.bit_length() - bits - 1, lowest - 1)
    while abs(exact) / Fraction(2) ** place >= 2**bits or place < lowest:
        place += 1
    unit = Fraction(2) ** place
    return round(exact / unit) * unit


class Arithmetic(unittest.TestCase):
    def test_single_agrees_with_the_machine(self):
        rng = random.Random(1)
        for _ in range(20000):
            value = rng.uniform(-1, 1) * 10 ** rng.uniform(-46, 38)
            self.assertEqual(single(value), ctypes.c_float(value).value)

    def test_single_beyond_its_range_fails(self):
        self.assertEqual(single(3.4028235677973362e38), 3.4028234663852886e38)
        for value in (3.4028235677973366e38, -1e39, math.inf, math.nan):
            self.assertRaises(Failure, single, value)

    def test_extended_agrees_with_its_definition(self):
        rng = random.Random(2)
        for _ in range(4000):
            factors = [random_single(rng) for _ in range(rng.choice((2, 3)))]
            factors = [math.ldexp(math.frexp(f)[0], rng.randrange(-8, 9)) for f in factors]
            addend = math.ldexp(math.frexp(random_single(rng))[0], rng.randrange(-30, 31))
            exact = Fraction(factors[0])
            for factor in factors[1:]:
                exact = rounded(exact * Fraction(factor), 64, -16445)
            exact = rounded(exact + Fraction(addend), 64, -16445)
            self.assertEqual(extended_multiply_add(factors, addend), float(rounded(exact, 24, -149)))

    def test_extended_keeps_what_double_loses(self):
        addend = 1.0 + 2.0**-23
        factors = [2.0**-24 * (1.0 + 2.0**-18), 1.0 - 2.0**-18]  # a trace below half a step of the sum
        self.assertEqual(extended_multiply_add(factors, addend), addend)
        self.assertEqual(single(factors[0] * factors[1] + addend), 1.0 + 2.0**-22)

    def test_extended_rounds_each_product(self):
        rng = random.Random(4)
        wide = [[single(rng.uniform(1, 2)) for _ in range(3)] for _ in range(200)]
        self.assertTrue(any(Fraction(a) * Fraction(b) * Fraction(c) != rounded(
            Fraction(a) * Fraction(b) * Fraction(c), 64, -16445) for a, b, c in wide))
        for factors in wide:
            stepped = rounded(Fraction(factors[0] * factors[1]) * Fraction(factors[2]), 64, -16445)
            self.assertEqual(extended_multiply_add(factors, 0.0), float(rounded(stepped, 24, -149)))

    def test_whole_numbers_round_halves_to_even(self):
        for value, whole in ((0.5, 0), (1.5, 2), (2.5, 2), (-2.5, -2), (2147483647.4999, 2147483647),
                             (-2147483648.5, -2147483648)):
            self.assertEqual(to_long(value), whole)
        for value in (2147483647.5, -2147483648.51, 1e300):
            self.assertRaises(Failure, to_long, value)

    def test_quotient_cuts_towards_zero(self):
        for dividend, divisor, quotient in ((199, 100, 1), (-199, 100, -1), (199, -100, -1), (3, 100, 0)):
            self.assertEqual(truncated_quotient(dividend, divisor), quotient)

    def test_currency_rounds_the_exact_value(self):
        cases = ((0.00005, 1), (0.00015, 1), (0.03125, 312), (0.09375, 938), (-0.03125, -312), (7, 70000))
        for value, units in cases:
            self.assertEqual(to_currency(value), units)
        self.assertRaises(Failure, to_currency, 922337203685478)
        self.assertEqual(currency_to_single(1001), single(0.1001))

    def test_round_significant(self):
        for value, digits, result in ((1234.5, 2, 1200), (1250, 2, 1200), (1350, 2, 1400), (1000, 2, 1000),
                                      (0.456, 2, 0.46), (0, 2, 0), (-1350, 2, -1400), (123456, 3, 123000),
                                      (999.9, 2, 1000), (950, 2, 950)):
            self.assertEqual(round_significant(float(value), digits), result)

    def test_val(self):
        for text, number in (("12 acres", 12), ("abc", 0), ("", 0), ("1e5", 1e5), ("1e", 1), (" 7", 7), (".5x", 0.5),
                             ("1,234", 1), ("1.2.3", 1.2), ("-4.25 or so", -4.25), ("-", 0), (".", 0), ("--3", 0)):
            self.assertEqual(val(text), number, text)

    def test_shortest_text(self):
        for value, text in ((0.5, "0.5"), (1250.0, "1250"), (single(123456.79), "123456.79"), (-2.5, "-2.5"),
                            (12345678.0, "12345678"), (single(1e-10), "0.0000000001"), (-0.0, "0"),
                            (1e10, "10000000000"), (single(1e30), "1" + "0" * 30)):
            self.assertEqual(single_text(value), text)

    def test_shortest_digits_give_the_single_back_and_fewer_do_not(self):
        rng = random.Random(3)
        for _ in range(5000):
            value = abs(random_single(rng)) or 1.0
            digits, exponent = shortest_single(value)
            self.assertEqual(single(float("%de%d" % (digits, exponent))), value)
            fewer = len(str(digits)) - 2
            if fewer >= 0:
                self.assertNotEqual(single(float("%.*e" % (fewer, value))), value)


class Comparing(unittest.TestCase):
    def faults(self, expected, text):
        return [each[3] for each in differences(expected, parse(text))]

    def test_equal_documents_agree(self):
        document = {"a": [1, None, True, "x"], "weight": 0.25, "categoryScore": {"3": single(5.7), "4": None},
                    "potentialLoss": 0.1}
        self.assertEqual(self.faults(document, write_value(document)), [])

    def test_each_kind_of_difference_is_found(self):
        for expected, text, fault in (
                ({"weight": single(0.1)}, '{"weight": 0.10000000149011612}', "not the fewest digits"),
                ({"weight": single(0.1)}, '{"weight": 0.2}', "another figure"),
                ({"weight": 0.0}, '{"weight": -0}', "minus zero"),
                ({"weight": None}, '{"weight": 0}', "another value"),
                ({"weight": 1.0}, '{"weight": null}', "no number"),
                ({"weight": 1.0}, '{"weight": "1"}', "no number"),
                ({"quantity": 1}, '{"quantity": 1.0}', "no whole number"),
                ({"quantity": 1}, '{"quantity": true}', "no whole number"),
                ({"bShow": True}, '{"bShow": 1}', "another value"),
                ({"itemName": "1"}, '{"itemName": 1}', "another text"),
                ({"a": 1}, "{}", "member absent"), ({}, '{"a": 1}', "member too many"),
                ({"outcomes": [1]}, '{"outcomes": []}', "another length"),
                ({"outcomes": []}, '{"outcomes": null}', "another kind of value"),
                ({"valueAtRisk": 0.1}, '{"valueAtRisk": 0.10000000149011612}', "another figure")):
            self.assertEqual(self.faults(expected, text), [fault], text)

    def test_literal_is_told_from_text(self):
        self.assertIsInstance(parse("[1]")[0], Literal)
        self.assertNotIsInstance(parse('["1"]')[0], Literal)


class Files(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = os.path.join(self.folder.name, "a.qel")

    def calm_maker(self, **properties):
        maker = Maker("none")
        maker.temper = "calm"
        for name, value in {"DataFormatID": "06.01.01", "ProgramID": "Basic", **properties}.items():
            maker.add("Properties", Property=name, Value=value)
        for key, child in ((1, 0), (2, 3)):
            maker.add("Objectives", Key=key, ChildKey=child)
        for key, following in ((3, 4), (4, 5), (5, 0)):
            maker.add("Objectives", Key=key, ParentKey=2, SiblingKey=following, Priority=10)
        maker.add("Items", ItemKey=300, ItemName="A", Heading="", ParentKey=26, ChildIndex=1)
        for key, parent, index, success in ((1, 0, 1, 0), (2, 300, 1, 33), (3, 300, 2, 50)):
            maker.add("Outcomes", ItemKey=key, ParentKey=parent, ChildIndex=index, Success=success)
        for criterion, value in ((3, 9), (4, 6), (5, 3)):
            maker.add("Scores", OutcomeKey=2, CriterionKey=criterion, Value=value)
        return maker

    def evaluated(self, maker):
        maker.write(self.path)
        return evaluate(self.path)

    def test_small_file(self):
        document = self.evaluated(self.calm_maker(SelectedAlternativeKey="300x"))
        alternative = document["alternatives"][0]
        self.assertEqual(alternative["label"], "A. ")
        self.assertEqual(alternative["outcomePercent"], [33, 34, 33])
        self.assertEqual(alternative["outcomes"][0]["safetyScore"], 6.0)
        self.assertEqual(document["selectedAlternativeKey"], 300)
        self.assertEqual([o["weight"] for o in document["safetyIssues"]], [1.0] + [single(1 / 3)] * 3)

    def test_missing_fallback_leaves_no_outcomes(self):
        maker = self.calm_maker()
        maker.rows["Outcomes"].pop()
        alternative = self.evaluated(maker)["alternatives"][0]
        self.assertIsNone(alternative["outcomes"])
        self.assertEqual(alternative["outcomePercent"], [None] * 3)
        self.assertIsNone(alternative["expectedCost"])

    def test_circle_among_the_issues_fails_both_scores(self):
        maker = self.calm_maker()
        maker.rows["Objectives"][-1]["SiblingKey"] = 3
        document = self.evaluated(maker)
        self.assertIsNone(document["safetyIssues"])
        self.assertIsNone(document["extremeOutcome"]["totalScore"])
        self.assertIsNone(document["extremeOutcome"]["rawSafetyScore"])
        self.assertEqual(document["extremeOutcome"]["rawObjScore"], {"1": None})

    def test_other_edition_does_not_open(self):
        self.calm_maker(ProgramID="Standard").write(self.path)
        self.assertRaises(NotADataFile, evaluate, self.path)

    def test_same_seed_makes_the_same_rows(self):
        self.assertEqual(Maker("9").make().rows, Maker("9").make().rows)

    def test_every_temper_makes_a_file_that_is_a_database(self):
        seen = set()
        for seed in range(400):
            maker = Maker(str(seed)).make()
            if maker.temper not in seen:
                seen.add(maker.temper)
                path = os.path.join(self.folder.name, maker.temper)
                maker.write(path)
                with sqlite3.connect(path) as connection:
                    self.assertEqual(connection.execute("PRAGMA integrity_check").fetchone(), ("ok",))
                connection.close()
        self.assertEqual(len(seen), 10)


if __name__ == "__main__":
    sys.exit(unittest.main())
