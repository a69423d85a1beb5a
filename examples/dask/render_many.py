#!/usr/bin/env python3
"""Renders the lines of a file on a Dask cluster: one picture a line, named by the line's number.

    render_many.py FORMULAS.txt FOLDER [--format svg] [--scheduler tcp://HOST:8786]

Without a scheduler two workers are started on this machine. With one, FOLDER is a place that all of
its workers reach. A worker that is lost costs time, no formula: its share is rendered again, to the
same bytes.
"""
import argparse
import os
import pathlib
from typing import Iterable, List, Tuple

import dask.bag
import mivora
from distributed import Client, LocalCluster

SHARE = 250  # formulas that a worker takes at once

Numbered = Tuple[int, str]
Told = Tuple[int, str]


def write_share(lines: Iterable[Numbered], folder: str, format: str) -> List[Told]:
    """Writes the pictures of some lines; gives what is wrong with them, by number. Runs on workers."""
    numbered = list(lines)
    told = []
    for (number, _), made in zip(numbered, mivora.batch((text for _, text in numbered), format)):
        if made.data is not None:
            put(pathlib.Path(folder) / f"{number:06}.{format}", made.data)
        if made.error is not None:
            told.append((number, made.error.message))
    return told


def put(path: pathlib.Path, data: bytes) -> None:
    """Whole or not at all: the worker may end at any moment, and another one do the same."""
    temporary = path.with_name(f".{path.name}.{os.uname().nodename}.{os.getpid()}")
    temporary.write_bytes(data)
    os.replace(temporary, path)


def render(texts: List[str], folder: str, format: str = "svg") -> dask.bag.Bag:
    """What is to be done; its compute() does it and gives what is wrong with lines."""
    bag = dask.bag.from_sequence(enumerate(texts, 1), partition_size=SHARE)
    return bag.map_partitions(write_share, folder, format)


def main() -> None:
    options = argparse.ArgumentParser(description=__doc__,
                                      formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("formulas", type=pathlib.Path)
    options.add_argument("folder", type=pathlib.Path)
    options.add_argument("--format", default="svg")
    options.add_argument("--scheduler")
    options = options.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    texts = options.formulas.read_text(encoding="utf-8").splitlines()
    where = options.scheduler or LocalCluster(n_workers=2, threads_per_worker=1,
                                              dashboard_address=None)
    with Client(where):
        told = render(texts, str(options.folder.resolve()), options.format).compute()
    for number, message in told:
        print(f"line {number}: {message}")
    print(f"{len(texts)} lines, {len(told)} with something to be told")


if __name__ == "__main__":
    main()
