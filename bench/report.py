#!/usr/bin/env python3
"""Turns what the benches have measured into the page and the plot of docs/performance/, and into rows of JSON."""

import argparse
import json
import os
import pathlib
import platform
import subprocess
import sys

# Each kind of work: its bench, what one element is, and the most that one may cost: nanoseconds, of memory bytes; None
# where only the growth counts. The goal of a mouse move over nothing new is for the whole move.
WORK = [
    ("compose_still", "shape", 15),
    ("compose_fading", "button", 45),
    ("resize", "shape", 15),
    ("move_still", "whole move", 1000),
    ("move_changed", "shape", 5),
    ("open", "shape", 4000),
    ("save", "shape", 2000),
    ("close", "shape", 300),
    ("animate", "shape", 200),
    ("rekey", "key", 60),
    ("script_get", "call", 500),
    ("script_set_rect", "call", 1000),
    ("font_file", "file", 4000),
    ("memory", "shape", 1200),
    ("delete_first", "shape", None),
    ("delete_last", "shape", None),
    ("delete_any", "shape", None),
    ("relayer", "call", None),
    ("find_by_name", "look-up", None),
]
NAMES = [name for name, _, _ in WORK]
GOAL_SIZE = 10000
GROWTH_SIZES = (1000, 50000)
MOST_GROWTH = 2.0
# Work that is measured as a whole and has no goal in figures.
IN_ALL = {
    **{f"step_of_a_tenth/{shapes}": f"a step of {shapes // 10:,} nodes of 5 tracks with 20 keys, those of all dialogs among"
                                    f" them, over {shapes:,} shapes" for shapes in (5000, 10000, 20000, 40000)},
    **{f"resize_of_a_tenth/{shapes}": f"a new view size with all their keys, every dialog scaled, {shapes:,} shapes"
       for shapes in (5000, 10000, 20000, 40000)},
    **{f"{work}/{scene}/{shapes}": f"{what}, {shapes:,} shapes {where}"
       for work, what in {"frame_of": "a frame into the null device", "move_over": "a mouse move to other shapes",
                          "resize_of": "a new view size", "open_and_close": "opening the file and closing it"}.items()
       for scene, where in {"one_spot": "in dialogs on one spot", "one_dialog": "in one dialog"}.items()
       for shapes in (5000, 10000)},
    **{f"animated_resize/{shapes}": f"a new view size, a step and a frame, all of {shapes:,} shapes animated"
       for shapes in (5000, 10000)},
    **{f"software_frame/{shapes}": f"a frame of {shapes:,} shapes with its pixels, by SDL's software renderer"
       for shapes in (1000, 10000)},
    "first_scan": "the names of 2,000 font files that were never read before",
    "scan_again": "the same files at the next project, none of them changed",
    "list_of_the_system": "asking the system which fonts it has",
}
# What does not depend on a scene has no growth.
WITHOUT_SCENE = {"font_file"}


def runs_of(folder):
    """Each repetition of each bench, with its nanoseconds."""
    for path in sorted(pathlib.Path(folder).glob("*.json")):
        text = path.read_text()
        for run in json.loads(text)["benchmarks"] if text else []:
            if run.get("run_type") == "aggregate":
                continue
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            manual = run["name"].endswith("/manual_time")
            unit = {"ns": 1, "us": 1e3, "ms": 1e6}[run["time_unit"]]
            yield run, run["real_time" if manual else "cpu_time"] * unit


def read_results(folder):
    """The best of all repetitions: {(name, peer, elements): row}."""
    best = {}
    for run, total in runs_of(folder):
        title, elements = run["name"].split("/")[:2] if "/" in run["name"] else (run["name"], "0")
        name, _, peer = title.partition(":")
        if name not in NAMES:
            continue
        value = run["bytes_per_element"] if name == "memory" else run["seconds_per_element"] * 1e9
        row = {"value": value, "total": total, "includes": run.get("label", ""), "allocations": run.get("allocations")}
        key = (name, peer or None, int(elements))
        if key not in best or value < best[key]["value"]:
            best[key] = row
    return best


def whole_rows(folder):
    for name, what in IN_ALL.items():
        totals = [total for run, total in runs_of(folder) if run["name"] == name]
        if totals:
            yield [f"`{name}`", what, shown(min(totals), name)]


def shown(value, name):
    if name == "memory":
        return f"{value:,.0f} B"
    for limit, unit, factor in ((1e3, "ns", 1), (1e6, "µs", 1e3)):
        if value < limit:
            return f"{value / factor:.3g} {unit}"
    return f"{value / 1e6:.3g} ms"


def sizes_of(best, name, peer):
    return sorted(size for found, who, size in best if found == name and who == peer)


def measure(best, name, peer, size):
    """The figure that the goal speaks of; None where none was measured."""
    row = best.get((name, peer, size))
    if row is None:
        return None
    return row["total"] if name == "move_still" else row["value"]


def verdict(holds):
    return "holds" if holds else "**does not hold**"


def goal_rows(best):
    for name, element, goal in WORK:
        sizes = sizes_of(best, name, None)
        if not sizes:
            continue
        size = GOAL_SIZE if GOAL_SIZE in sizes else sizes[-1]
        value = measure(best, name, None, size)
        row = [f"`{name}`", element, shown(goal, name) if goal else "", shown(value, name),
               verdict(value <= goal) if goal else ""]
        small, large = (best.get((name, None, size)) for size in GROWTH_SIZES)
        if small and large and name not in WITHOUT_SCENE:
            growth = large["value"] / small["value"]
            row += [f"{growth:.2f}", verdict(growth <= MOST_GROWTH)]
        else:
            row += ["", ""]
        yield row


def figure_rows(best, sizes):
    for name, _, _ in WORK:
        peers = sorted({who for found, who, _ in best if found == name}, key=lambda who: who or "")
        for peer in peers:
            found = [best.get((name, peer, size)) for size in sizes]
            if name in WITHOUT_SCENE:
                found = [best[(name, peer, sizes_of(best, name, peer)[0])]] + [None] * (len(sizes) - 1)
            includes = next(row["includes"] for row in found if row)
            yield [f"`{name}`", peer or "this system", *(shown(row["value"], name) if row else "" for row in found),
                   includes]


def ratio_rows(best):
    for name, _, _ in WORK:
        for peer in sorted({who for found, who, _ in best if found == name and who}):
            sizes = sizes_of(best, name, peer)
            size = GOAL_SIZE if GOAL_SIZE in sizes else sizes[-1]
            own = best.get((name, None, size))
            if own:
                yield [f"`{name}`", peer, f"{size:,}", f"{best[(name, peer, size)]['value'] / own['value']:.1f}"]


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith(("cpu MHz", "model name")) and "unknown" not in line:
            yield line.split(":")[1].strip()


def page(best, wholes):
    sizes = sorted({size for name, _, size in best if name not in WITHOUT_SCENE})
    allocations = max((row["allocations"] or 0) for row in best.values())
    machine = next(processor(), platform.machine())
    parts = [
        "# What much costs\n",
        "Written by `tools/bench`; run it again for the figures of another machine. One thread on one core, the best of",
        "three repetitions, release build; times are those of the processor, so that the disk and other programs play no",
        f"part. This run: {machine}, {os.cpu_count()} cores.\n",
        "The scene has N/100 dialogs of 100 shapes, in all nine alignments and scaled; half of the shapes have pictures",
        "(16 different ones), a tenth has 12 characters of text; `bench/scene/crowd.h` makes it, and",
        "`build/bench/bin/make_crowd 10000 crowd.sgui` writes it as a project.\n",
        "![time over the number of shapes](time.svg)\n",
        "## Goals\n",
        f"At {GOAL_SIZE:,} shapes; the growth is that of the cost per element from {GROWTH_SIZES[0]:,} to"
        f" {GROWTH_SIZES[1]:,} shapes, which must not exceed {MOST_GROWTH:g}.",
        f"Steady frames asked for memory {allocations:g} times.\n",
        table(["Work", "of one", "goal", "measured", "", "growth", ""], goal_rows(best)),
        "## Figures\n",
        "Per element at so many shapes. `move_still` too is given per shape here; its goal is for the whole move.\n",
        table(["Work", "by", *(f"{size:,}" for size in sizes), "includes"], figure_rows(best, sizes)),
    ]
    if wholes:
        parts += ["## In all\n", table(["Work", "what it is", "time"], wholes)]
    ratios = list(ratio_rows(best))
    if ratios:
        parts += ["## Beside others\n",
                  "How many times this system's cost others take for the same work in the same run; more is better for us.\n",
                  table(["Work", "by", "shapes", "times"], ratios)]
    return "\n".join(parts)


def plot(best, path):
    lines = [(name, peer) for name in NAMES if name not in WITHOUT_SCENE | {"memory"}
             for peer in sorted({who for found, who, _ in best if found == name}, key=lambda who: who or "")]
    data = []
    styles = []
    for index, (name, peer) in enumerate(lines):
        data.append("\n".join(f"{size} {best[(name, peer, size)]['total']}" for size in sizes_of(best, name, peer)))
        title = name if peer is None else f"{name}: {peer}"
        dash = 1 if peer is None else 2
        styles.append(f"'-' with linespoints title \"{title}\" noenhanced linecolor {NAMES.index(name) + 1} dashtype {dash}")
    script = [f"set terminal svg size 1000,{480 + 12 * len(lines)} font 'sans,12' background 'white'", f"set output '{path}'",
              "set logscale xy", "set xlabel 'shapes'", "set ylabel 'nanoseconds of one run of the work'",
              "set format y '10^{%L}'", "set grid", "set key outside right", "plot " + ", ".join(styles)]
    subprocess.run(["gnuplot"], input="\n".join(script) + "\n" + "\ne\n".join(data) + "\ne\n", text=True, check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("results", help="folder of the benches' own JSON files")
    parser.add_argument("--json", help="file for the rows")
    parser.add_argument("--only", action="store_true", help="print the figures, write no page")
    arguments = parser.parse_args()
    best = read_results(arguments.results)
    if arguments.json:
        rows = [{"name": name, "peer": peer, "elements": size, "ns_per_element": row["value"]}
                for (name, peer, size), row in best.items()]
        pathlib.Path(arguments.json).write_text(json.dumps(rows, indent=1, ensure_ascii=False) + "\n")
    if arguments.only:
        sizes = sorted({size for _, _, size in best})
        print(table(["Work", "by", *map(str, sizes), "includes"], figure_rows(best, sizes)))
        return
    folder = pathlib.Path(__file__).resolve().parent.parent / "docs" / "performance"
    folder.mkdir(exist_ok=True)
    (folder / "README.md").write_text(page(best, list(whole_rows(arguments.results))))
    plot(best, folder / "time.svg")
    print(table(["Work", "of one", "goal", "measured", "", "growth", ""], goal_rows(best)))


main()
