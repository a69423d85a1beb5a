#!/usr/bin/env python3
"""20,000 formulas on two workers, one of which is killed in the middle: nothing is lost, and the
bytes are those of one process.

    cluster_test.py FORMULAS.txt RENDER_MANY.py
"""
import importlib
import logging
import os
import pathlib
import signal
import sys
import tempfile
import time

import dask.bag
import mivora
from distributed import Client, LocalCluster

COUNT = 20_000


def example(path):
    """The example as a module that workers import by its name too."""
    sys.path.insert(0, str(pathlib.Path(path).parent))
    os.environ["PYTHONPATH"] = os.pathsep.join(
        [str(pathlib.Path(path).parent), os.environ.get("PYTHONPATH", "")])
    return importlib.import_module(pathlib.Path(path).stem)


def texts_of(path):
    """Different ones: each has its number in it. Every 1,000th cannot be made, as many are faulty."""
    formulas = pathlib.Path(path).read_text(encoding="utf-8").splitlines()
    texts = [f"({formulas[n % len(formulas)]})/{n}" for n in range(COUNT)]
    texts[500::1000] = [f"☃+{n}" for n in range(500, COUNT, 1000)]
    texts[600::1000] = [f"{n}x" for n in range(600, COUNT, 1000)]
    return texts


def kill_one_in_the_middle(client, folder):
    """When a part of the files is there."""
    pids = client.run(os.getpid)
    until = time.monotonic() + 300
    while len(os.listdir(folder)) < COUNT // 4:
        assert time.monotonic() < until, "the workers do nothing"
        time.sleep(0.02)
    done = len(os.listdir(folder))
    assert done < COUNT * 0.9, "too late"
    os.kill(next(iter(pids.values())), signal.SIGKILL)
    return done


def main():
    formulas, script = sys.argv[1:]
    render_many = example(script)
    texts = texts_of(formulas)
    logging.getLogger("distributed").setLevel(logging.CRITICAL)
    with tempfile.TemporaryDirectory() as folder, \
            LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, \
            Client(cluster) as client:
        few = texts[:50] * 10
        made = dask.bag.from_sequence(few, npartitions=4).map_partitions(mivora.batch, format="png")
        assert made.compute() == list(mivora.batch(few, format="png"))

        future = client.compute(render_many.render(texts, folder))
        done = kill_one_in_the_middle(client, folder)
        told = dict(future.result(timeout=300))
        lost = 0
        for number, made in enumerate(mivora.batch(texts), 1):
            path = pathlib.Path(folder) / f"{number:06}.svg"
            if made.data is None:
                assert not path.exists() and "U+2603" in told[number], number
            else:
                lost += not path.exists() or path.read_bytes() != made.data
            assert (number in told) == (made.error is not None), (number, made.error)
    assert lost == 0, f"{lost} of {COUNT} are missing or different"
    assert sum("Error at Position" in message for message in told.values()) >= 20, len(told)
    print(f"{COUNT} formulas, a worker killed after {done}: nothing lost")


if __name__ == "__main__":
    main()
