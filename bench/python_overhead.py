#!/usr/bin/env python3
"""What the Python call adds to a solve, and how a thread pool scales.

The same solves of the example project (IPE 300, 10 m, 100 elements) are
timed once as p.solve() called from Python and once as the core's sweep loop
on one thread (no Python between the solves); the difference per solve is
the cost of the call: the copy of the record, the lock given up and taken
back, the result object. Then 1,000 spans on a ThreadPoolExecutor of one and
of two workers. The smallest of five rounds is kept: a shared machine only
ever adds time.

    PYTHONPATH=build/python ZARVEK_HOME=build/bin python3 bench/python_overhead.py
"""
import time
from concurrent.futures import ThreadPoolExecutor

import zarvek

N = 1000
ROUNDS = 5


def best(f, clock=time.perf_counter):
    t = []
    for _ in range(ROUNDS):
        t0 = clock()
        f()
        t.append(clock() - t0)
    return min(t)


p = zarvek.Project()
p.solve()  # warm the caches
spans = [2.01 + 0.01 * i for i in range(N)]

# processor time of this process: on a shared machine, waiting for a core
# is not counted (both loops run on this one thread)
py_loop = core_loop = float("inf")
for _ in range(ROUNDS):  # interleaved, so that both meet the same machine
    py_loop = min(py_loop, best(lambda: [p.solve() for _ in range(N // 10)], time.process_time) * 10)
    core_loop = min(core_loop, best(lambda: zarvek.sweep(p, "Txt_L", [10.0] * (N // 10), jobs=1),
                                    time.process_time) * 10)
print(f"solve from Python   {py_loop / N * 1e6:8.1f} us per solve")
print(f"core loop           {core_loop / N * 1e6:8.1f} us per solve")
print(f"Python call adds    {(py_loop - core_loop) / N * 1e6:8.1f} us per solve")


def solve_span(L):
    q = p.copy()
    q["Txt_L"] = L
    return q.solve().mucr


for workers in (1, 2):
    with ThreadPoolExecutor(max_workers=workers) as pool:
        t = best(lambda: list(pool.map(solve_span, spans)))
    print(f"{N} spans, {workers} worker(s): {t:6.3f} s  ({N / t:7.0f} solves/s)")
