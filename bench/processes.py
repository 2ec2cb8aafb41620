#!/usr/bin/env python3
"""Whole processes, run by turns, as ratios: the companion against the engine's own shell, the desktop against a bare window.

    bench/processes.py BUILD_FOLDER      e.g. build/dev; the desktop's part needs a display (xvfb-run -a ...)
"""

import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from table import row

RUNS = 25
WARM_UP = 3
CPU, WALL, MEMORY = 0, 1, 2
EVALUATE_MEGABYTES = 30
REPORT_BUDGETS = {"smith-creek": 2, "granite-fork-complex": 2.5}


def run(command, environment=None):
    """CPU seconds, wall seconds and peak megabytes of one run."""
    start = time.perf_counter()
    child = os.fork()
    if child == 0:
        quiet = os.open(os.devnull, os.O_WRONLY)
        os.dup2(quiet, 1)
        os.dup2(quiet, 2)
        os.execvpe(command[0], command, {**os.environ, **(environment or {})})
    _, status, usage = os.wait4(child, 0)
    wall = time.perf_counter() - start
    if status != 0:
        sys.exit(f"{command[0]} ended with status {status}")
    return usage.ru_utime + usage.ru_stime, wall, usage.ru_maxrss / 1024


def compare(what, ours, floor, budget, environment=None, runs=RUNS, warm_up=WARM_UP, columns=(CPU,)):
    """Runs both by turns; rows of medians with the median of the ratios pair by pair. The most memory of ours."""
    pairs = [(run(ours, environment), run(floor)) for _ in range(runs + warm_up)][warm_up:]
    for column in columns:
        a, b = ([pair[side][column] * 1000 for pair in pairs] for side in (0, 1))
        ratio = statistics.median(x / y for x, y in zip(a, b))
        row(what + (", wall" if column == WALL else ""), statistics.median(a), statistics.median(b), ratio, budget, "ms")
    return max(pair[0][MEMORY] for pair in pairs)


def compare_richtext(build, home):
    """Our reader against the readers that a system may have; left out where there are none."""
    bench = str(build / "bench/vexa_bench_richtext")
    rtf = str(home / "narrative.rtf")
    subprocess.run([bench, "make", rtf], check=True)
    if shutil.which("unrtf"):
        compare("rtf to text / unrtf --text", [bench, "text", rtf], ["unrtf", "--text", rtf], 0.25)
        compare("rtf to document / unrtf --text", [bench, "document", rtf], ["unrtf", "--text", rtf], 2)
    if shutil.which("soffice"):
        office = ["soffice", f"-env:UserInstallation=file://{home}/office", "--headless", "--convert-to", "html",
                  "--outdir", str(home), rtf]
        compare("rtf to document / soffice", [bench, "document", rtf], office, 0.25, runs=3, warm_up=1)


def paragraphs(words):
    """The words of a page, a line a paragraph: the least that a plain document of them can be."""
    return "\n".join(" ".join(part.split()) for part in re.split(r"\n\s*\n|\f", words))


def compare_report(build, home, sample, budget, surroundings):
    """All sections of a sample against the toolkit's own document of the same words, and against an office suite."""
    fire = str(home / f"{sample}.qel")
    report = [str(build / "bin/vexa-cli"), "report", fire]
    pdf, rtf, words = (str(home / name) for name in ("report.pdf", "report.rtf", "words.txt"))
    environment = {**os.environ, **surroundings}
    for out in (pdf, rtf):
        subprocess.run([*report, out], check=True, env=environment, stderr=subprocess.DEVNULL)
    if shutil.which("pdftotext"):
        said = subprocess.run(["pdftotext", pdf, "-"], check=True, capture_output=True, text=True).stdout
        pathlib.Path(words).write_text(paragraphs(said))
        floor = [str(build / "bench/vexa_bench_report"), "floor", words, str(home / "floor.pdf")]
        compare(f"report to pdf, {sample} / QTextDocument", [*report, pdf], floor, budget, surroundings)
        compare(f"report to rtf, {sample} / to pdf", [*report, rtf], [*report, pdf], 1, surroundings)
    if shutil.which("soffice"):
        office = ["soffice", f"-env:UserInstallation=file://{home}/office", "--headless", "--convert-to", "pdf",
                  "--outdir", str(home / "office-pdf"), rtf]
        compare(f"report to pdf, {sample} / soffice", [*report, pdf], office, 0.2, surroundings, runs=3, warm_up=1)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder)
        shutil.copy(build / "bin/QEL.new", home)
        for sample in REPORT_BUDGETS:
            shutil.copy(build / f"bin/samples/{sample}.qel", home)
        fire = str(home / "smith-creek.qel")
        surroundings = {"VEXA_HOME": str(home)}
        memory = compare("evaluate / sqlite3 .dump", [str(build / "bin/vexa-cli"), "evaluate", fire],
                         ["sqlite3", fire, ".dump"], 4, surroundings)
        row("evaluate, memory / allowed", memory, EVALUATE_MEGABYTES, memory / EVALUATE_MEGABYTES, 1, "MB")
        compare_richtext(build, home)
        for sample, budget in REPORT_BUDGETS.items():
            compare_report(build, home, sample, budget, surroundings)
        if os.environ.get("DISPLAY"):
            compare("first worksheet / bare window", [str(build / "bench/vexa_bench_start_vexa"), fire],
                    [str(build / "bench/vexa_bench_start_bare")], 2, surroundings, columns=(CPU, WALL))


main()
