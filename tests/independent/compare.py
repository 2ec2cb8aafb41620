#!/usr/bin/env python3
"""Holds a built companion against the independent calculation, member by member and to the bit.

    compare.py VEXA_CLI [--count N] [--seed N] [--batch N] [--shown N] [--keep FOLDER] [FILE...]

With no FILE it generates N data files first. The status is 0 when every file agrees, 1 when one does not, 2 when
the companion could not be run; the last line counts the files.
"""

import argparse
import json
import os
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile
from collections import Counter

sys.dont_write_bytecode = True  # these scripts run from the source tree

import generate
from arithmetic import Failure, shortest_double, shortest_single, single
from evaluate import DOUBLES, SINGLES, NotADataFile, evaluate, member_of

WHOLE = re.compile(r"-?(?:0|[1-9][0-9]*)\Z")


class Literal(str):
    """A number as it stands in the JSON text."""


def digits_written(literal):
    """The significant digits of a literal: no sign, exponent, leading or trailing zeros."""
    mantissa = re.split("[eE]", literal.lstrip("-"))[0].replace(".", "")
    return len(mantissa.strip("0"))


def float_fault(expected, actual, member):
    """What is wrong with a literal that should give this float, None if nothing."""
    if not isinstance(actual, Literal):
        return "no number"
    value = float(actual)
    if member in SINGLES:
        try:
            value = single(value)
        except Failure:
            return "beyond single"
    if value != expected:
        return "another figure"
    if actual.startswith("-") and expected == 0:
        return "minus zero"
    shortest = shortest_double if member in DOUBLES else shortest_single
    fewest = 0 if expected == 0 else len(str(shortest(abs(expected))[0]))
    return None if digits_written(actual) == fewest else "not the fewest digits"


def leaf_fault(expected, actual, member):
    """Type and figure of one value: null, boolean, text, whole number or float."""
    if expected is None or isinstance(expected, bool):
        return None if actual is expected else "another value"
    if isinstance(expected, str):
        return None if type(actual) is str and actual == expected else "another text"
    if member in SINGLES or member in DOUBLES:
        return float_fault(float(expected), actual, member)
    if not isinstance(actual, Literal) or not WHOLE.match(actual):
        return "no whole number"
    return None if actual != "-0" and int(actual) == expected else "another figure"


def differences(expected, actual, path="", member=""):
    """Yields (path, expected, actual, fault) for every place where the two documents differ."""
    if isinstance(expected, dict) and isinstance(actual, dict):
        for name in list(expected) + [name for name in actual if name not in expected]:
            inner = path + "/" + name
            if name not in actual:
                yield inner, expected[name], "(absent)", "member absent"
            elif name not in expected:
                yield inner, "(absent)", actual[name], "member too many"
            else:
                yield from differences(expected[name], actual[name], inner, member_of(name, member))
    elif isinstance(expected, list) and isinstance(actual, list):
        if len(expected) != len(actual):
            yield path, len(expected), len(actual), "another length"
        for place, (one, other) in enumerate(zip(expected, actual)):
            yield from differences(one, other, "%s/%d" % (path, place), member)
    elif isinstance(expected, (dict, list)) or isinstance(actual, (dict, list)):
        yield path, brief(expected), brief(actual), "another kind of value"
    else:
        fault = leaf_fault(expected, actual, member)
        if fault:
            yield path, expected, actual, fault


def brief(value):
    return value if not isinstance(value, (dict, list)) else type(value).__name__


def run_companion(program, paths, home):
    """Runs `evaluate` over a batch; returns (status, output, diagnostics)."""
    environment = dict(os.environ, VEXA_HOME=home, LC_ALL="C.UTF-8")
    done = subprocess.run([program, "evaluate", *paths], env=environment, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    return done.returncode, done.stdout.decode("utf-8", "replace"), done.stderr.decode("utf-8", "replace")


def parse(text):
    return json.loads(text, parse_float=Literal, parse_int=Literal, parse_constant=Literal)


def documents(output, paths):
    """The document of each path; None where the output has none."""
    if len(paths) == 1:
        texts = [output] if output.strip() else []
    else:
        texts = [line for line in output.split("\n") if line.strip()]
    found = {}
    for text in texts:
        try:
            document = parse(text)
        except ValueError:
            continue
        if isinstance(document, dict) and isinstance(document.get("file"), str):
            found[document["file"]] = document
    return [found.get(path) for path in paths], len(texts)


def expectation(path):
    """The document of the independent calculation, or None for a file that must not open."""
    try:
        return evaluate(path)
    except (NotADataFile, sqlite3.Error):
        return None


class Tally:
    """What was seen, and the differences by the member they stand in."""

    def __init__(self, shown):
        self.passed = self.failed = self.figures = self.nulls = 0
        self.by_member = Counter()
        self._shown = shown

    def fail(self, path, lines):
        self.failed += 1
        if self.failed <= self._shown:
            print("%s:" % path)
            for line in lines[:12]:
                print("    " + line)
            if len(lines) > 12:
                print("    and %d more" % (len(lines) - 12))

    def count(self, value):
        if isinstance(value, (dict, list)):
            for inner in value.values() if isinstance(value, dict) else value:
                self.count(inner)
        else:
            self.figures += 1
            self.nulls += value is None


def judge(tally, path, expected, actual):
    """Compares one file's two documents and counts it."""
    if actual is None:
        tally.fail(path, ["no document"])
    elif expected is None or ("error" in actual and path.endswith("-missing.qel")):
        judge_refusal(tally, path, actual)
    else:
        found = list(differences(expected, actual))
        tally.by_member.update(re.sub(r"/-?[0-9]+(?=/|$)", "/*", each[0]) + ": " + each[3] for each in found)
        tally.count(expected)
        if found:
            tally.fail(path, ["%s: expected %r, found %r (%s)" % each for each in found])
        else:
            tally.passed += 1


def judge_refusal(tally, path, actual):
    """A file that must not open, or one that lacks a table: a line with a cause and nothing else."""
    if set(actual) == {"file", "error"} and isinstance(actual["error"], str) and actual["error"]:
        tally.passed += 1
    else:
        tally.fail(path, ["expected a line with \"file\" and \"error\" alone"])


def compare_batch(tally, program, home, paths):
    expected = [expectation(path) for path in paths]
    status, output, diagnostics = run_companion(program, paths, home)
    actual, lines = documents(output, paths)
    errors = any(document is None or "error" in document for document in actual)
    if lines != len(paths) or status != (1 if errors else 0):
        print("batch of %d from %s: %d documents, status %d; %s"
              % (len(paths), paths[0], lines, status, diagnostics.strip()[-400:]))
        tally.failed += 1
    for path, one, other in zip(paths, expected, actual):
        judge(tally, path, one, other)


def parsed_arguments():
    parser = argparse.ArgumentParser(description="Holds the companion against the independent calculation.")
    parser.add_argument("program")
    parser.add_argument("files", nargs="*")
    parser.add_argument("--count", type=int, default=400, help="data files to generate")
    parser.add_argument("--seed", default="1")
    parser.add_argument("--batch", type=int, default=100, help="files for one run of the companion")
    parser.add_argument("--shown", type=int, default=10, help="failing files to print")
    parser.add_argument("--keep", help="folder for the generated files, kept afterwards")
    return parser.parse_intermixed_args()


def compare_all(arguments, scratch):
    tally = Tally(arguments.shown)
    home = os.path.join(scratch, "home")
    os.makedirs(home)
    paths = arguments.files or generate.generate(arguments.keep or os.path.join(scratch, "files"),
                                                 arguments.count, arguments.seed)
    for start in range(0, len(paths), arguments.batch):
        compare_batch(tally, arguments.program, home, paths[start:start + arguments.batch])
    return tally


def main():
    arguments = parsed_arguments()
    program = shutil.which(arguments.program)
    if not program:
        print("cannot run " + arguments.program, file=sys.stderr)
        return 2
    arguments.program = os.path.abspath(program)
    with tempfile.TemporaryDirectory() as scratch:
        tally = compare_all(arguments, scratch)
    for place, times in tally.by_member.most_common(40):
        print("%6d  %s" % (times, place))
    print("%d values compared, %d of them null" % (tally.figures, tally.nulls))
    print("%d passed, %d failed" % (tally.passed, tally.failed))
    return 1 if tally.failed or not tally.passed else 0


if __name__ == "__main__":
    sys.exit(main())
