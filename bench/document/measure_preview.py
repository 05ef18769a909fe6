"""Time and memory of whole `tabulon preview` processes on documents of mixed arithmetic.

The 10,000-line document stands beside the 100,000-line one, and beside python3 reading the same lines with
its own parser and decimal module at 100 digits, in the same run.
"""

import os
import random
import subprocess
import sys
import tempfile
import time


def line(generator):
    """A line as people write them, and the same for python."""
    number = lambda: generator.choice(
        [str(generator.randint(1, 9999)), f"{generator.uniform(0, 1000):.2f}", f"{generator.randint(1000, 999999):,}"]
    )
    a, b, c = number(), number(), number()
    return generator.choice(
        [
            f"{a} + {b}",
            f"({a} + {b}) * {c}",
            f"{a} / {b} - {c}",
            f"Rent: {a} + {b}",
            f"{a} - {generator.randint(1, 90)}%",
            f"{generator.randint(2, 99)}^{generator.randint(2, 20)}",
            f"{a} * {b} // note",
            f"-{a} + {b} * ({c} - {a})",
        ]
    )


PEER = """
import decimal, re, sys
decimal.getcontext().prec = 101
number = re.compile(r"[0-9][0-9,]*\\.?[0-9]*")
for text in open(sys.argv[1], encoding="utf-8"):
    text = re.sub(r"^[A-Za-z]+:|//.*", "", text).replace("%", "*D('0.01')").replace("^", "**").strip()
    code = number.sub(lambda m: "D('" + m.group().replace(",", "") + "')", text.replace("D('0.01')", "0.01"))
    print(format(eval(compile(code, "line", "eval"), {"D": decimal.Decimal}), ",f"))
"""


def run(command):
    """Seconds and peak megabytes of one process."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - start
    if status != 0:
        raise SystemExit(f"{command} failed")
    return seconds, usage.ru_maxrss / 1024


def best(command, times):
    runs = [run(command) for _ in range(times)]
    return min(seconds for seconds, _ in runs), max(megabytes for _, megabytes in runs)


def main():
    tabulon = os.path.abspath(sys.argv[1])
    generator = random.Random(2026)
    with tempfile.TemporaryDirectory() as folder:
        figures = {}
        for count in (10_000, 100_000):
            text = os.path.join(folder, f"{count}.txt")
            document = os.path.join(folder, f"{count}.tabulon")
            with open(text, "w", encoding="utf-8") as file:
                file.writelines(line(generator) + "\n" for _ in range(count))
            subprocess.run([tabulon, "convert", text, document], check=True)
            page = os.path.join(folder, "page.html")
            figures[count] = best([tabulon, "preview", document, "-o", page], 5 if count == 10_000 else 2)
        peer, _ = best([sys.executable, "-c", PEER, os.path.join(folder, "10000.txt")], 3)
        start, _ = best([tabulon, "--version"], 5)

    print(f"{'tabulon preview':<28}{'seconds':>9}{'MB':>8}   ratio")
    (small, small_memory), (large, large_memory) = figures[10_000], figures[100_000]
    print(f"{'10,000 lines':<28}{small:>9.3f}{small_memory:>8.0f}   {small / peer:.2f} of python3's decimal")
    print(f"{'100,000 lines':<28}{large:>9.3f}{large_memory:>8.0f}   {large / small:.1f} of 10,000 lines")
    print(f"{'python3, 10,000 lines':<28}{peer:>9.3f}")
    print(f"{'tabulon --version':<28}{start:>9.3f}")


main()
