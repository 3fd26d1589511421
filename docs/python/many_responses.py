#!/usr/bin/env python3
"""Values a file of responses by several processes: many_responses.py PROJECT MATRIX.npy OUT.npy [--dask]

An envelope is independent row by row, so the rows go out in blocks, to processes of this machine or, with --dask, to the workers
of a cluster: here two on this machine, elsewhere `Client("scheduler:8786")`, whose workers see the same two files. MATRIX has a
row for each response and a column for each load case of the project, ascending. OUT gets the least and the greatest value of
each row.
"""
import argparse
import concurrent.futures
import multiprocessing
import time

import mrl
import numpy as np

SITUATION = "persistent"
ROWS = 20000  # a block: some hundredths of a second, and little to send back


def value_block(project_file, matrix_file, start, stop):
    """The extremes of some rows, and the processor time that they took. Reads no more of the matrix than these rows."""
    begun = time.process_time()
    rows = np.load(matrix_file, mmap_mode="r")[start:stop]
    with mrl.open(project_file) as project:
        envelope = project.envelope(rows, SITUATION, threads=1)
    return start, np.column_stack((envelope.min, envelope.max)), time.process_time() - begun


def value_all(executor, project_file, matrix_file, out_file):
    """Works with any executor of concurrent.futures' kind."""
    count = np.load(matrix_file, mmap_mode="r").shape[0]
    out = np.lib.format.open_memmap(out_file, mode="w+", dtype=np.float64, shape=(count, 2))
    blocks = [
        executor.submit(value_block, project_file, matrix_file, start, min(start + ROWS, count))
        for start in range(0, count, ROWS)
    ]
    seconds = 0.0
    for block in blocks:
        start, extremes, taken = block.result()
        out[start : start + len(extremes)] = extremes
        seconds += taken
    out.flush()
    return count, seconds


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("files", nargs=3, metavar=("PROJECT", "MATRIX", "OUT"))
    parser.add_argument("--dask", action="store_true", help="on the workers of a cluster")
    arguments = parser.parse_args()
    if arguments.dask:
        from distributed import Client

        with Client(n_workers=2, threads_per_worker=1, dashboard_address=None) as client:
            count, seconds = value_all(client.get_executor(), *arguments.files)
    else:
        with concurrent.futures.ProcessPoolExecutor(mp_context=multiprocessing.get_context("spawn")) as pool:
            count, seconds = value_all(pool, *arguments.files)
    print(f"{count} responses, {count / seconds:.0f} a second on one core")


if __name__ == "__main__":
    main()
