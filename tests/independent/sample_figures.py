#!/usr/bin/env python3
"""Checks the independent calculation on the three sample fires against figures that were worked out apart from it.

    sample_figures.py FOLDER       the folder with smith-creek.qel, juniper-gap.qel and granite-fork-complex.qel
"""

import os
import sys

sys.dont_write_bytecode = True  # these scripts run from the source tree

from evaluate import evaluate

# fire, alternative, percents of Target, Fallback and Extreme, score, safety, cost, loss
ALTERNATIVES = """
smith-creek A 55,0,45 4.8 4.0 18000000 9500000
smith-creek B 75,15,10 6.3 6.2 11000000 3300000
smith-creek C 60,0,40 3.2 5.3 16000000 11000000
juniper-gap A 70,0,30 2.7 4.2 98000 0
juniper-gap B 80,0,20 0.0 0.0 0 0
granite-fork-complex A 35,0,65 3.2 3.3 130000000 210000000
granite-fork-complex B 60,22,18 5.9 5.0 91000000 79000000
granite-fork-complex C 70,0,30 4.2 4.7 85000000 140000000
granite-fork-complex D 55,18,27 4.1 5.3 69000000 140000000
granite-fork-complex E 58,0,42 4.1 4.3 100000000 150000000
granite-fork-complex F 60,0,40 2.8 5.3 78000000 220000000
"""

# fire, outcome, score, safety, cost by size, by list and daily, estimated cost, loss
OUTCOMES = """
smith-creek A.Target 7.8 5.0 5520000 6780000 0 6780000 255000
smith-creek B.Target 7.2 6.8 6510000 7690000 0 7690000 1015000
smith-creek B.Fallback 5.0 5.2 10300000 0 12200000 12200000 3320000
smith-creek C.Target 4.5 7.0 6210000 0 0 6210000 5215000
smith-creek Extreme 1.2 2.8 13000000 0 0 31000000 20720000
juniper-gap A.Target 3.8 6.0 0 0 0 140000 0
juniper-gap B.Target 0.0 0.0 0 0 0 0 0
juniper-gap Extreme 0.0 0.0 0 0 0 0 0
granite-fork-complex A.Target 6.8 4.5 77500000 89600000 0 89600000 7960000
granite-fork-complex B.Target 7.5 5.8 54600000 74300000 0 74300000 16750000
granite-fork-complex B.Fallback 5.5 4.8 69400000 0 90400000 90400000 47060000
granite-fork-complex C.Target 5.5 5.6 76900000 57700000 0 57700000 61410000
granite-fork-complex D.Target 5.5 6.6 38000000 0 0 38000000 61990000
granite-fork-complex D.Fallback 4.2 5.5 43700000 0 0 43700000 98990000
granite-fork-complex E.Target 6.2 5.6 59500000 0 0 70000000 32850000
granite-fork-complex F.Target 3.8 7.1 30800000 0 0 30800000 150180000
granite-fork-complex Extreme 1.2 2.6 39000000 0 0 150000000 323369984
"""

BEST = {"smith-creek": "B", "juniper-gap": "B", "granite-fork-complex": "D"}


def by_name(document):
    """Alternatives by letter, outcomes by names like B.Fallback."""
    alternatives = {each["itemName"]: each for each in document["alternatives"]}
    outcomes = {"Extreme": document["extremeOutcome"]}
    for letter, alternative in alternatives.items():
        for place, kind in enumerate(("Target", "Fallback")):
            outcomes["%s.%s" % (letter, kind)] = alternative["outcomes"][place]
    return alternatives, outcomes


def found_for_alternative(each):
    percents = ",".join(map(str, each["outcomePercent"]))
    return [percents, "%.1f" % each["expectedScore"], "%.1f" % each["expectedSafetyScore"],
            "%.0f" % each["expectedCost"], "%.0f" % each["expectedLoss"]]


def found_for_outcome(each):
    members = ("costBySize", "srUseCost", "dailyCost", "estimatedCost", "estimatedLoss")
    return ["%.1f" % each["totalScore"], "%.1f" % each["safetyScore"]] + ["%.0f" % each[name] for name in members]


def rows(folder):
    """Yields (what, expected figures, found figures)."""
    documents = {fire: evaluate(os.path.join(folder, fire + ".qel")) for fire in BEST}
    named = {fire: by_name(document) for fire, document in documents.items()}
    for line in ALTERNATIVES.split("\n"):
        if line:
            fire, name, *figures = line.split()
            yield "%s %s" % (fire, name), figures, found_for_alternative(named[fire][0][name])
    for line in OUTCOMES.split("\n"):
        if line:
            fire, name, *figures = line.split()
            yield "%s %s" % (fire, name), figures, found_for_outcome(named[fire][1][name])
    for fire, letter in BEST.items():
        key = documents[fire]["mostCostEffectiveAlternativeKey"]
        yield fire + " best", key, named[fire][0][letter]["itemKey"]


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    passed = failed = 0
    for what, expected, found in rows(arguments[0]):
        passed, failed = passed + (expected == found), failed + (expected != found)
        if expected != found:
            print("%s: expected %s, found %s" % (what, expected, found))
    print("%d passed, %d failed" % (passed, failed))
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
