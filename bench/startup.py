#!/usr/bin/env python3
"""Start-up of the program against an empty Qt Widgets window, under Xvfb.

The empty window draws no text; the same window with one line of text ("one line") shows what
any window with words pays on top: reading the font database and loading a font. Both come at the
game window's base size and again at the size the program's window first appears at ("same
size"), since a larger window costs more memory to draw into. Starts them all several times,
interleaved, on one virtual display of its own, and measures for each
start the whole process from the moment it is spawned to its first painted frame (and the
processor time it used until then), and its proportional set size (PSS) a moment after that
frame. Prints the medians and the ratios.

    bench/startup.py [--build build] [--runs 15] [--settle 0.3]

Needs Xvfb and a build with the benchmarks (bench/bq_empty_window, the first-paint probe).
"""

import argparse
import os
import select
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time


def start_display(width, height):
    """A private Xvfb; returns (process, display name). It must not reset when its last client
    leaves, as a desktop's display never does: a reset runs the keyboard compiler again and made
    every start that followed another one some 60 ms slower, whatever the program."""
    for number in range(90, 140):
        if os.path.exists(f"/tmp/.X11-unix/X{number}") or os.path.exists(f"/tmp/.X{number}-lock"):
            continue
        xvfb = subprocess.Popen(
            ["Xvfb", f":{number}", "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp", "-noreset"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline:
            if xvfb.poll() is not None:
                break  # taken meanwhile: try the next number
            if os.path.exists(f"/tmp/.X11-unix/X{number}"):
                time.sleep(0.2)
                return xvfb, f":{number}"
            time.sleep(0.02)
        if xvfb.poll() is None:
            xvfb.kill()
            xvfb.wait()
    sys.exit("startup.py: no free display for Xvfb")


def pss_kib(pid):
    with open(f"/proc/{pid}/smaps_rollup") as rollup:
        for line in rollup:
            if line.startswith("Pss:"):
                return int(line.split()[1])
    raise RuntimeError("no Pss line")


def one_start(command, env, settle, timeout=30.0):
    """Seconds from spawn to the first painted frame, processor seconds used until then, and PSS
    in KiB `settle` seconds later."""
    read_end, write_end = os.pipe()
    env = dict(env, FIRST_PAINT_FD=str(write_end))
    began = time.perf_counter()
    process = subprocess.Popen(command, env=env, pass_fds=(write_end,),
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    os.close(write_end)
    try:
        ready, _, _ = select.select([read_end], [], [], timeout)
        painted = time.perf_counter()
        line = os.read(read_end, 64).split() if ready else []
        if len(line) != 3 or line[0] != b"painted":
            raise RuntimeError(f"{command[0]}: no frame within {timeout} s")
        time.sleep(settle)
        return painted - began, int(line[1]) / 1e6, pss_kib(process.pid), line[2].decode()
    finally:
        os.close(read_end)
        process.send_signal(signal.SIGKILL)
        process.wait()


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", default=os.path.join(here, "..", "build"))
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--settle", type=float, default=0.3,
                        help="seconds between the first frame and reading PSS")
    args = parser.parse_args()

    build = os.path.abspath(args.build)
    probe = os.path.join(build, "bench", "libbq_first_paint_probe.so")
    empty = os.path.join(build, "bench", "bq_empty_window")
    game = os.path.join(build, "bramblequay")
    for path in (probe, empty, game):
        if not os.path.exists(path):
            sys.exit(f"startup.py: {path} is missing; build first (make build)")
    if shutil.which("Xvfb") is None:
        sys.exit("startup.py: Xvfb is not installed")

    xvfb, display = start_display(1920, 1080)
    scratch = tempfile.mkdtemp(prefix="bq-startup-")
    runtime = os.path.join(scratch, "run")
    os.mkdir(runtime, 0o700)
    env = {k: v for k, v in os.environ.items() if k not in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    env.update(DISPLAY=display, QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=runtime,
               LD_PRELOAD=probe)
    settings = os.path.join(scratch, "Bramblequay.INI")
    programs = {
        "empty window": [empty],
        "one line": [empty, "--text"],
        "bramblequay": [game, "--settings", settings],
    }
    results = {name: ([], [], []) for name in programs}
    try:
        # One start of each first, not counted: the display's and the disk cache's first time.
        for command in programs.values():
            size = one_start(command, env, 0)[3]  # the program's own comes last
        programs["empty, same size"] = [empty, "--size", size]
        programs["line, same size"] = [empty, "--text", "--size", size]
        for name in ("empty, same size", "line, same size"):
            results[name] = ([], [], [])
            one_start(programs[name], env, 0)
        names = list(programs)
        for run in range(args.runs):
            for name in (names if run % 2 == 0 else reversed(names)):
                if os.path.exists(settings):
                    os.remove(settings)  # every start is a first start
                for kept, value in zip(results[name], one_start(programs[name], env, args.settle)):
                    kept.append(value)
    finally:
        xvfb.terminate()
        xvfb.wait()
        shutil.rmtree(scratch, ignore_errors=True)

    print(f"{args.runs} starts each, interleaved, on Xvfb {display} (1920x1080); "
          f"load average {os.getloadavg()[0]:.2f}; the program's window first appears at {size}")
    print(f"{'':16} {'first frame, ms':^24} {'processor, ms':^24} {'PSS, MB':^24}")
    print(f"{'':16}" + f" {'median':>8} {'min':>7} {'max':>7}" * 3)
    medians = {}
    for name, (times, cpu, pss) in results.items():
        row = f"{name:16}"
        for values, scale, digits in ((times, 1000, 0), (cpu, 1000, 0), (pss, 1 / 1024, 1)):
            v = [x * scale for x in values]
            row += f" {statistics.median(v):8.{digits}f} {min(v):7.{digits}f} {max(v):7.{digits}f}"
        print(row)
        medians[name] = [statistics.median(values) for values in (times, cpu, pss)]
    game = medians["bramblequay"]
    for name in ("empty window", "one line", "empty, same size", "line, same size"):
        base = medians[name]
        print(f"ratio to {name + ':':17} first frame {game[0] / base[0]:.2f}x, "
              f"processor {game[1] / base[1]:.2f}x, PSS {game[2] / base[2]:.2f}x")


if __name__ == "__main__":
    main()
