#!/usr/bin/env python3
"""Mcr against span for three rolled sections, in the style of a notebook.

Fork-supported beams under a uniform moment, the spans solved side by side
on every core (each solve releases the interpreter lock). Run it with the
module on the path and the start directory known, e.g. from the build tree:

    PYTHONPATH=build/python ZARVEK_HOME=build/bin python3 examples/mcr_against_span.py

It writes mcr_against_span.png (or the file named as first argument).
"""
import os
import sys
from concurrent.futures import ThreadPoolExecutor

import matplotlib

matplotlib.use("Agg")  # no display needed
import matplotlib.pyplot as plt
import numpy as np

import zarvek

# %% the study: the default project (fork supports, uniform moment) with
# three sections of the catalogue, spans from 2 m to 14 m
sections = ["IPE 200", "IPE 300", "IPE 400"]
spans = np.arange(2.0, 14.01, 0.25)


def mcr(section, span):
    p = zarvek.Project()
    p.use_section(section)
    p["Txt_L"] = span
    return p.solve().Mcr


# %% solve: every (section, span) pair is an independent solve
with ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
    curves = {s: np.abs(list(pool.map(lambda L, s=s: mcr(s, L), spans))) for s in sections}

# %% plot
fig, ax = plt.subplots(figsize=(7, 4.5))
for s in sections:
    ax.plot(spans, curves[s], label=s)
ax.set_xlabel("Span L (m)")
ax.set_ylabel("Elastic critical moment Mcr (kN.m)")
ax.set_title("Fork-supported beam under uniform moment")
ax.set_yscale("log")
ax.grid(True, which="both", alpha=0.3)
ax.legend()
fig.tight_layout()
out = sys.argv[1] if len(sys.argv) > 1 else "mcr_against_span.png"
fig.savefig(out, dpi=120)
print("written:", out)
