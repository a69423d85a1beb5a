#!/usr/bin/env python3
"""What a picture costs through Python, beside C++ and C in the same run:

    python_bench.py BUILD

Prints microseconds for each formula of tests/data/formulas.txt, from the text to the bytes, and what
Python adds to C++. Ends non-zero if that is more than 20.
"""
import json
import os
import pathlib
import subprocess
import sys
import time
import warnings

ROOT = pathlib.Path(__file__).resolve().parents[1]
MOST_ADDED = 20
ROUNDS = 30


def compiled(build):
    """The rows of the benchmark program: microseconds by name, the least of some repetitions."""
    done = subprocess.run([build / "bin/mivora-bench", "--benchmark_filter=^FormAndDraw",
                           "--benchmark_repetitions=5", "--benchmark_format=json"],
                          check=True, capture_output=True, text=True)
    least = {}
    for row in json.loads(done.stdout)["benchmarks"]:
        if row["run_type"] == "iteration":
            least.setdefault(row["run_name"], []).append(row["per_formula"] * 1e6)
    return {name: min(times) for name, times in least.items()}


def through_python(texts, format):
    import mivora
    least = float("inf")
    for _ in range(ROUNDS):
        start = time.perf_counter()
        for text in texts:
            mivora.Formula(text).picture(format)
        least = min(least, time.perf_counter() - start)
    return least / len(texts) * 1e6


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    os.environ["MIVORA_LIBRARY"] = str(build / "lib/libmivora-c.so")
    sys.path.insert(0, str(ROOT / "python"))
    warnings.simplefilter("ignore")
    texts = (ROOT / "tests/data/formulas.txt").read_text(encoding="utf-8").splitlines()
    times = compiled(build)
    worst = 0
    print(f"{'format':8}{'C++':>8}{'C':>8}{'Python':>8}{'added':>8}")
    for name in "Svg", "Png":
        python = through_python(texts, name.lower())
        cpp, c = times[f"FormAndDraw/{name}"], times[f"FormAndDrawInC/{name}"]
        worst = max(worst, python - cpp)
        print(f"{name.lower():8}{cpp:8.1f}{c:8.1f}{python:8.1f}{python - cpp:8.1f}")
    return 0 if worst <= MOST_ADDED else f"Python adds more than {MOST_ADDED} microseconds"


if __name__ == "__main__":
    sys.exit(main())
