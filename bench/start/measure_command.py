"""Time and memory of a whole `tabulon answers` process for one conversion, beside `qalc -t` for the same.

The two take turns, so that what else the machine does falls on both; the least time of each counts. Exit code 1
when the process takes more than its share of qalc's time, or more memory than it may.
"""

import os
import shutil
import subprocess
import sys
import time

ROUNDS = 30
HIGHEST_RATIO = 0.4
HIGHEST_MEGABYTES = 40

CONVERSIONS = [  # the line, and the same in qalc's words
    ("100 km in miles", "100 km to mi"),
    ("20 °C in °F", "20 °C to °F"),
    ("$3 per kg * 5 kg", "USD 3 / kg * 5 kg"),
]


def run(command, text):
    """Seconds, peak megabytes and output of one process that reads a text."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    process.stdin.write(text.encode())
    process.stdin.close()
    output = process.stdout.read().decode().strip()
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - start
    if status != 0 or not output:
        raise SystemExit(f"{command} failed")
    return seconds, usage.ru_maxrss / 1024, output


def main():
    tabulon = os.path.abspath(sys.argv[1])
    peer = shutil.which("qalc")
    if not peer:
        raise SystemExit("measure_command: qalc is not installed")
    missed = False
    print(f"{'one line, whole process':<28}{'tabulon':>10}{'MB':>7}{'qalc -t':>11}   ratio")
    for line, peer_line in CONVERSIONS:
        runs, peer_runs = [], []
        for _ in range(ROUNDS):
            runs.append(run([tabulon, "answers", "-"], line + "\n"))
            peer_runs.append(run([peer, "-t", peer_line], ""))
        seconds, peer_seconds = min(r[0] for r in runs), min(r[0] for r in peer_runs)
        megabytes = max(r[1] for r in runs)
        print(
            f"{line:<28}{seconds * 1000:>7.1f} ms{megabytes:>7.1f}{peer_seconds * 1000:>8.1f} ms"
            f"   {seconds / peer_seconds:.2f}   ({runs[0][2]}; {peer_runs[0][2]})"
        )
        missed |= seconds > HIGHEST_RATIO * peer_seconds or megabytes > HIGHEST_MEGABYTES
    print(f"at most {HIGHEST_RATIO:.2f} of qalc's time and {HIGHEST_MEGABYTES} MB")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
