"""Ratios of the engine's calls to the reference kernel, from the JSON output of bench_engine.

Usage: bench_engine --benchmark_repetitions=9 --benchmark_format=json | engine_ratios.py
"""

import json
import sys


def medians(report):
    """Nanoseconds of one call by benchmark name."""
    times = {}
    for row in report["benchmarks"]:
        if row.get("aggregate_name") != "median":
            continue
        per_second = row.get("items_per_second")
        times[row["run_name"]] = 1e9 / per_second if per_second else row["cpu_time"]
    return times


def main():
    times = medians(json.load(sys.stdin))
    kernel = times.pop("kernel")
    print(f"{'one call':<24}{'ns':>8}{'/ kernel':>10}")
    print(f"{'reference kernel':<24}{kernel:8.0f}{1:10.2f}")
    for name, time in sorted(times.items(), key=lambda row: row[1]):
        print(f"{name:<24}{time:8.0f}{time / kernel:10.2f}")


if __name__ == "__main__":
    main()
