"""Time and memory of whole `tabulon thumbnail` processes, beside the start of the program, the page of the same
document, and a browser that draws that page; then what marking the tokens of a page costs."""

import os
import random
import shutil
import subprocess
import sys
import tempfile
import time


def line(generator):
    a, b, c = (generator.choice([str(generator.randint(1, 9999)), f"{generator.uniform(0, 999):.2f}"]) for _ in "abc")
    return generator.choice(
        [f"{a} + {b}", f"({a} + {b}) * {c}", f"Rent: {a} + {b}", f"{a} * {b} // note", f"{a} - 5%", f"{a} km + {b} m"]
    )


def run(command):
    """Seconds and peak megabytes of one process."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - start
    if status != 0:
        raise SystemExit(f"{command} failed")
    return seconds, usage.ru_maxrss / 1024


def row(name, command, times=7):
    runs = [run(command) for _ in range(times)]
    seconds = min(seconds for seconds, _ in runs)
    print(f"{name:<44}{seconds * 1000:>8.0f} ms{max(memory for _, memory in runs):>6.0f} MB")
    return seconds


def main():
    tabulon, marking = map(os.path.abspath, sys.argv[1:3])
    generator = random.Random(2026)
    with tempfile.TemporaryDirectory() as folder:
        documents = {}
        for count in (100, 10_000, 40_000):
            text = os.path.join(folder, f"{count}.txt")
            documents[count] = os.path.join(folder, f"{count}.tabulon")
            with open(text, "w", encoding="utf-8") as file:
                file.writelines(line(generator) + "\n" for _ in range(count))
            subprocess.run([tabulon, "convert", text, documents[count]], check=True)
        page, picture = os.path.join(folder, "page.html"), os.path.join(folder, "picture.png")
        row("tabulon --version", [tabulon, "--version"])
        row("page, 100 lines", [tabulon, "preview", documents[100], "-o", page])
        for size in ("128", "256", "512"):
            row(f"thumbnail, 100 lines, {size} pixels", [tabulon, "thumbnail", documents[100], "-o", picture, "-s", size])
        row("thumbnail, 10,000 lines", [tabulon, "thumbnail", documents[10_000], "-o", picture], 3)
        if os.path.getsize(documents[40_000]) <= 32 << 20:
            row("thumbnail, 40,000 lines", [tabulon, "thumbnail", documents[40_000], "-o", picture], 2)
        browser = shutil.which("chromium")
        if browser:
            row("chromium, the page of 100 lines",
                [browser, "--headless", "--no-sandbox", "--disable-gpu", f"--user-data-dir={folder}/profile",
                 f"--screenshot={picture}", "--window-size=600,800", "file://" + page], 3)  # fmt: skip
        subprocess.run([marking, documents[10_000]], check=True)


main()
