#!/usr/bin/env python3
"""Checks a program's engine against the second computation on generated check points.

    run_second_computation.py PROGRAM [--count 2000] [--seed 1] [--keep FILE]

Feeds the points to `PROGRAM points -` and compares every value of its output. Prints the hits of
every branch of the rules, the largest relative difference of every item, and the disagreements.
Exit status 1 when a value disagrees or a branch is never reached.
"""

import argparse
import collections
import json
import subprocess
import sys

from second_computation import branches
from second_computation.comparison import compare
from second_computation.engine import evaluate_with_trail
from second_computation.generate_points import generate

#: disagreeing points printed in full
SHOWN = 5
#: largest share of values that may need the bound of their rounding, in percent
ROUNDING_SHARE = 1.0


def run_program(program, lines):
    """Output rows of the program, one per input line."""
    done = subprocess.run([program, "points", "-"], input="\n".join(lines) + "\n",
                          capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{program} ended with {done.returncode}: {done.stderr.strip()[:2000]}")
    rows = [json.loads(line) for line in done.stdout.splitlines()]
    if len(rows) != len(lines):
        sys.exit(f"{program} gave {len(rows)} rows for {len(lines)} points")
    return rows


class Summary:
    """Counts over all points."""

    def __init__(self):
        self.branch_hits = collections.Counter()
        self.largest = {}
        self.compared = 0
        self.by_rounding = 0
        self.disagreeing = []  # (point, outcome, trail)
        self.close = []        # (id, decisions) of points that needed the bound

    def add(self, point, outcome, trail):
        self.branch_hits.update(trail)
        self.compared += outcome.compared
        self.by_rounding += outcome.by_rounding
        for name, difference in outcome.largest.items():
            if difference > self.largest.get(name, (-1.0, None))[0]:
                self.largest[name] = (difference, point["id"])
        if outcome.disagreements:
            self.disagreeing.append((point, outcome, trail))
        if outcome.close:
            self.close.append((point["id"], outcome.close))


def print_branches(summary):
    print("hits  branch")
    for name in branches.ALL:
        print(f"{summary.branch_hits[name]:5}  {name}")
    for name, reason in branches.BEHIND_THE_ENTRY.items():
        print(f"    -  {name} (not through the entry: {reason})")


def print_differences(summary):
    print("\nlargest relative difference  value (point)")
    for name, (difference, point_id) in summary.largest.items():
        print(f"{difference:27.3g}  {name} ({point_id})")


def print_disagreements(summary):
    kinds = collections.Counter((point["id"].split("/")[2], name)
                                for point, outcome, _ in summary.disagreeing
                                for name, _, _ in outcome.disagreements)
    for (family, name), count in kinds.most_common():
        print(f"disagrees {count} times: {name} in the family {family}")
    for point, outcome, trail in summary.disagreeing[:SHOWN]:
        print("\n" + json.dumps(point))
        for name, theirs, ours in outcome.disagreements:
            print(f"  {name}: program {theirs!r}, second computation {ours!r}")
        print("  branches: " + " ".join(dict.fromkeys(trail)))
    for point_id, decisions in summary.close:
        print(f"close decision in {point_id}: " + "; ".join(decisions))


def verdict(summary, count):
    """Prints the totals; returns the exit status."""
    missing = [name for name in branches.ALL if summary.branch_hits[name] == 0]
    declared = set(branches.ALL) | set(branches.BEHIND_THE_ENTRY)
    undeclared = sorted(set(summary.branch_hits) - declared)
    impossible = [name for name in branches.BEHIND_THE_ENTRY if summary.branch_hits[name]]
    share = 100.0 * summary.by_rounding / max(summary.compared, 1)
    reached = len(branches.ALL) - len(missing)
    print(f"\n{count} points, {summary.compared} values, "
          f"{len(summary.disagreeing)} points disagree, "
          f"{reached} of {len(branches.ALL)} branches reached")
    print(f"{summary.by_rounding} values ({share:.4f} %) agree within the rounding of their terms "
          f"only")
    for title, names in (("never reached", missing), ("not declared", undeclared),
                         ("thought out of reach", impossible)):
        for name in names:
            print(f"branch {title}: {name}")
    failed = missing or undeclared or impossible or summary.disagreeing or share >= ROUNDING_SHARE
    return 1 if failed else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--count", type=int, default=2000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--keep", help="file that gets the points as JSON Lines")
    arguments = parser.parse_args()

    points = [point for _, point in generate(arguments.count, arguments.seed)]
    lines = [json.dumps(point) for point in points]
    if arguments.keep:
        with open(arguments.keep, "w", encoding="utf-8") as kept:
            kept.write("\n".join(lines) + "\n")
    summary = Summary()
    for point, row in zip(points, run_program(arguments.program, lines)):
        own, trail = evaluate_with_trail(point)
        if row.get("id") != point["id"]:
            sys.exit(f"row of {row.get('id')!r} where {point['id']!r} was due")
        summary.add(point, compare(point, own, row), trail)
    print_branches(summary)
    print_differences(summary)
    print_disagreements(summary)
    return verdict(summary, len(points))


if __name__ == "__main__":
    sys.exit(main())
