#!/usr/bin/env python3
"""Fails, shortens or kills at the N-th call of open, read, write, fsync, rename, unlink, mkdir and close, over the
commands of orvelctl, the engine and what the desktop program does with files.

    tests/faults/faults.py BUILD [all | sample] [--only NAME] [--part I/N]

After each fault every file is what it was or whole, the program has ended with a sentence and 1 (or as if nothing had
happened, where the call does not matter), and the next try works. Runs in memory (/dev/shm)."""
import argparse
import io
import json
import mmap
import os
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import zipfile

KINDS = ["open", "read", "write", "fsync", "rename", "unlink", "mkdir", "close"]
HOW = {
    "open": ["EIO", "KILL"],
    "read": ["EIO", "EINTR", "SHORT"],
    "write": ["EIO", "ENOSPC", "EINTR", "SHORT", "KILL"],
    "fsync": ["EIO", "ENOSPC", "KILL"],
    "rename": ["EIO", "ENOSPC", "KILL"],
    "unlink": ["EIO", "KILL"],
    "mkdir": ["EIO", "ENOSPC", "KILL"],
    "close": ["EIO", "ENOSPC"],
}
HARMLESS = {"EINTR", "SHORT"}


# A report tells the minute in which it was made.
MADE_ON = re.compile(rb"(Report made on[^0-9]*)\d{4}-\d\d-\d\d \d\d:\d\d")
NOT_COMPLETE = b"a record that is not of a complete run"


def content(path):
    """The bytes of a file; of a report and of a record of a run what does not depend on the time."""
    with open(path, "rb") as file:
        found = file.read()
    if os.path.basename(path) != "run.json":
        return MADE_ON.sub(rb"\1", found)
    try:
        record = json.loads(found)
    except ValueError:
        return found
    if record["verdict"] != "complete":
        return NOT_COMPLETE
    return json.dumps({name: value for name, value in record.items() if name not in ("start", "end")}).encode()


def snapshot(directory, leave_out=lambda path: False):
    """The bytes of every file below a directory, by path."""
    files = {}
    for place, _, names in os.walk(directory):
        for name in names:
            path = os.path.join(place, name)
            relative = os.path.relpath(path, directory)
            if not leave_out(relative) and os.path.isfile(path):
                files[relative] = content(path)
    return files


def layout(directory):
    """Every file and directory below a directory with its rights."""
    found = {}
    for place, _, names in os.walk(directory):
        for path in (place, *(os.path.join(place, name) for name in names)):
            found[os.path.relpath(path, directory)] = os.lstat(path).st_mode
    return found


def is_leftover(path):
    return os.path.basename(path).startswith(".orvel-save-")


def told_in(report):
    """Whether a report, or that in an archive, tells itself what could not be read."""
    if report is not None and report.startswith(b"PK"):
        try:
            with zipfile.ZipFile(io.BytesIO(report)) as archive:
                return any(told_in(archive.read(name)) for name in archive.namelist() if name.endswith("report.html"))
        except zipfile.BadZipFile:
            return False
    told = (b"Input/output error", b">unreadable<", b"(inputs unreadable)")
    return report is not None and any(sentence in report for sentence in told)


def binned(path, files):
    """What the bin of its mode holds of a path: a mark that was killed is ended by the next one, a start or the program."""
    mode, _, below = path.partition("/")
    return [content for name, content in files.items() if re.fullmatch(re.escape(mode) + r"/bin/\d+/" + re.escape(below), name)]


class Case:
    """A command over a directory that `make` fills. `old_or_new`: paths that must be as before or as after an
    undisturbed run; all other paths must not change (those that begin as `free` says may).
    A command that has made `once` is not done again."""

    def __init__(self, name, make, command, exits=(1,), free=(), output=True, again_may_refuse=False, once=None):
        self.name, self.make, self.command, self.exits = name, make, command, exits
        self.free, self.output, self.again_may_refuse = free, output, again_may_refuse
        self.once = once


class Runner:
    def __init__(self, build, place, part=0, parts=1):
        self.build, self.place = build, place
        self.part, self.parts, self.faults = part, parts, 0
        self.counts = os.path.join(place, "counts")
        self.findings = []
        self.runs = 0

    def run(self, command, root, fault=None):
        with open(self.counts, "wb") as file:
            file.write(b"\0" * 8 * len(KINDS))
        environment = dict(os.environ, LD_PRELOAD=os.path.join(self.build, "faults", "faults_shim.so"),
                           FAULT_ROOT=root, FAULT_COUNTS=self.counts)
        if fault:
            environment.update(FAULT_CALL=fault[0], FAULT_AT=str(fault[1]), FAULT_HOW=fault[2])
        self.runs += 1
        try:
            result = subprocess.run(command, env=environment, cwd=root, stdin=subprocess.DEVNULL, capture_output=True,
                                    timeout=60)
            return result.returncode, result.stdout, result.stderr
        except subprocess.TimeoutExpired:
            return "hangs", b"", b""

    def counted(self):
        with open(self.counts, "rb") as file:
            return dict(zip(KINDS, struct.unpack("<8q", file.read())))

    def fresh(self, case):
        root = os.path.join(self.place, "work")
        shutil.rmtree(root, ignore_errors=True)
        os.mkdir(root)
        case.make(root)
        return root

    def find(self, case, fault, what):
        text = f"{case.name}: {' '.join(str(part) for part in fault)}: {what}"
        self.findings.append(text)
        print("FOUND", text, flush=True)

    def check_files(self, case, fault, before, after, now, may_be_old=True, killed=False):
        for path in sorted(set(before) | set(after) | set(now)):
            if is_leftover(path) or any(path.startswith(free) for free in case.free):
                continue
            states = {after.get(path)} | ({before.get(path)} if may_be_old else set())
            if may_be_old:
                states.add(NOT_COMPLETE)
            if now.get(path) in states or told_in(now.get(path)):
                continue
            if not (killed and path not in now and before[path] in binned(path, now)):
                state = "is gone" if path not in now else "is neither old nor new"
                self.find(case, fault, f"{path} {state}")

    def check(self, case, before, reference, fault):
        root = self.fresh(case)
        laid_out = layout(root)
        code, out, told = self.run(case.command(root), root, fault)
        now = snapshot(root)
        is_untouched = now == before and layout(root) == laid_out
        after, good_out = reference
        killed = fault[2] == "KILL" and code == -signal.SIGKILL
        if code == 0:
            self.check_files(case, fault, before, after, now, may_be_old=bool(told) or fault[2] == "KILL")
            if case.output and out != good_out and not told:
                self.find(case, fault, "exit 0 with another output, without a word")
        elif killed or code in case.exits:
            self.check_files(case, fault, before, after, now, killed=killed)
            if not killed and not told.strip():
                self.find(case, fault, f"exit {code} without a sentence")
            if fault[2] != "KILL" and any(is_leftover(path) for path in now) and fault[0] != "unlink":
                self.find(case, fault, "a temporary file stays")
        else:
            self.find(case, fault, f"ends with {code}: {told[-300:].decode(errors='replace')}")
        if fault[2] in HARMLESS and code != 0:
            self.find(case, fault, f"a harmless fault ends it: {told[-300:].decode(errors='replace')}")
        if is_untouched:
            return  # the next try is the first one
        complete = case.once is not None and os.path.exists(os.path.join(root, case.once))
        code, out, told = self.run(case.command(root), root)
        if complete:
            self.check_files(case, fault, before, after, snapshot(root), may_be_old=False)
        elif code != 0 and not case.again_may_refuse:
            self.find(case, fault, f"the next try ends with {code}: {told[-300:].decode(errors='replace')}")
        elif not case.again_may_refuse:
            self.check_files(case, fault, before, after, snapshot(root), may_be_old=False)

    def over(self, case, most, in_turn=False):
        """Every fault at each call of a kind; in turn: one fault at each, the next kind of fault at the next call."""
        root = self.fresh(case)
        before = snapshot(root)
        code, out, told = self.run(case.command(root), root)
        if code != 0:
            return self.find(case, ("no fault",), f"ends with {code}: {told.decode(errors='replace')}")
        counted, reference = self.counted(), (snapshot(root), out)
        begin, runs, found = time.monotonic(), self.runs, len(self.findings)
        for kind in KINDS:
            for at in sample(counted[kind], most):
                for how in [HOW[kind][at % len(HOW[kind])]] if in_turn else HOW[kind]:
                    self.faults += 1
                    if self.faults // 10 % self.parts == self.part:  # some of every kind
                        self.check(case, before, reference, (kind, at, how))
        calls = ", ".join(f"{counted[kind]} {kind}" for kind in KINDS if counted[kind])
        print(f"{case.name}: {calls}; {self.runs - runs} runs, {len(self.findings) - found} findings, "
              f"{time.monotonic() - begin:.1f} s", flush=True)


def sample(count, most):
    """All numbers, or the first, the last and some between."""
    if count <= most:
        return range(1, count + 1)
    if most == 1:
        return [1 + count // 2]
    return sorted({1 + (count - 1) * i // (most - 1) for i in range(most)})


def call(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)


class Stock:
    """What the cases are laid out from: a small installation, a finished run of it and a single run."""

    def __init__(self, build, place):
        self.bin = os.path.join(build, "bin")
        self.driver = os.path.join(build, "faults", "faults_driver")
        self.ctl = os.path.join(self.bin, "orvelctl")
        self.home = os.path.join(place, "home")
        full = os.path.join(place, "full")
        call(self.ctl, "init", full)
        os.makedirs(os.path.join(self.home, "focus"))
        for name in ("orvel401.exe", "Haude.dat", "demo_D.psm"):
            self.copy(os.path.join(full, name), os.path.join(self.home, name))
        focus = os.path.join(full, "focus")
        kept = ("H_maize", "c_apples", "datum", "focuscheck", "input")
        for name in os.listdir(focus):
            lower = name.lower()
            if lower.startswith(tuple(k.lower() for k in kept)) or (lower.startswith("h_") and lower[2:4].isdigit()
                                                                    and int(lower[2:4]) <= 26 and ".cli" in lower):
                self.copy(os.path.join(focus, name), os.path.join(self.home, "focus", name))
        shutil.rmtree(full)
        self.finished = os.path.join(place, "finished")
        shutil.copytree(self.home, self.finished, symlinks=True)
        call(self.ctl, "-C", self.finished, "mark", "--mode", "focus", "--pesticide", "demo_D.psm", "--crop", "Maize",
             "--location", "Hamburg (H)", "--output", "minimum")
        call(self.ctl, "-C", self.finished, "start", "--mode", "focus", "--wait")
        self.run = os.path.join("focus", "demo_D.run", "Maize.run", "Hamburg_-_(H).run")
        self.whole = os.path.join(place, "whole")
        shutil.copytree(self.finished, self.whole, symlinks=True)
        self.archive = os.path.join(place, "a.zip")
        call(self.ctl, "-C", self.whole, *self.archiving(self.archive))
        self.cut_run()
        self.single = os.path.join(place, "single")
        os.mkdir(self.single)
        for name in ("orvel401.exe", "Haude.dat", "demo_D.psm", "focus/H_maize.sze", "focus/H_01.cli"):
            self.copy(os.path.join(self.home, name), os.path.join(self.single, os.path.basename(name)))

    @staticmethod
    def archiving(target):
        return ["archive", "--mode", "focus", "--pesticide", "demo_D", "--to", target]

    @staticmethod
    def copy(source, target):
        shutil.copy2(source, target)

    def cut_run(self):
        """The climates are no longer needed, and the big file of series is not read."""
        focus = os.path.join(self.finished, "focus")
        for name in os.listdir(focus):
            if name.lower().endswith(".cli"):
                os.remove(os.path.join(focus, name))

    def lay(self, source):
        return lambda root: shutil.copytree(source, root, dirs_exist_ok=True, symlinks=True)


def cases(stock):
    ctl, home, run = stock.ctl, stock.home, stock.run
    finished = stock.lay(stock.finished)

    def documents(root):
        for name in ("demo_D.psm", "focus/H_maize.sze", "focus/H_01.cli"):
            stock.copy(os.path.join(home, name), os.path.join(root, os.path.basename(name)))
        for name in ("out.psm", "out.sze", "out.cli"):
            with open(os.path.join(root, name), "wb") as file:
                file.write(b"old\r\n")

    def reports(root):
        finished(root)
        for name in ("r.txt", "r.csv", "r.html", "s.csv"):
            with open(os.path.join(root, name), "wb") as file:
                file.write(b"old\r\n")

    def finished_single(root):
        stock.lay(stock.single)(root)
        for name in ("echo.orv", "chem.orv", "plot.orv"):
            with open(os.path.join(root, name), "wb") as file:
                file.write(name.encode() * 1000)
        with open(os.path.join(root, "orvel.inp"), "wb") as file:
            file.write(b"001 01 01 31 12\r\nH_maize.sze\r\ndemo_D.psm\r\nH_01.cli\r\n00000000\r\n")

    def engine_directory(root):
        stock.lay(stock.single)(root)
        with open(os.path.join(root, "orvel.inp"), "wb") as file:
            file.write(b"001 01 01 31 12\r\nH_maize.sze\r\ndemo_D.psm\r\nH_01.cli\r\n00000000\r\n")

    for source, target in (("demo_D.psm", "out.psm"), ("H_maize.sze", "out.sze"), ("H_01.cli", "out.cli")):
        yield Case(f"convert {target}", documents, lambda root, s=source, t=target: [
            ctl, "convert", os.path.join(root, s), os.path.join(root, t)])
        yield Case(f"show {source}", documents, lambda root, s=source: [ctl, "show", os.path.join(root, s)])
        yield Case(f"save {target}", documents, lambda root, s=source, t=target: [
            stock.driver, "save", os.path.join(root, s), os.path.join(root, t)])
    for options in ([], ["--json"]):
        yield Case(" ".join(["status", *options]), finished, lambda root, o=tuple(options): [
            ctl, "-C", root, "status", "--mode", "focus", *o])
    for words in (["tables"], ["balance"], ["balance", "--monthly"], ["pecsoil", "--depth", "5"]):
        yield Case(" ".join(words), finished, lambda root, w=tuple(words): [ctl, "-C", root, *w, os.path.join(root, run)],
                   output=False)
    report = ["report", "--mode", "focus", "--pesticide", "demo_D", "--crop", "Maize"]
    yield Case("report", finished, lambda root: [ctl, "-C", root, *report])
    for name in ("r.txt", "r.csv", "r.html"):
        yield Case(f"report {name}", reports, lambda root, n=name: [ctl, "-C", root, *report, "--to", os.path.join(root, n)])
    yield Case("series", finished, lambda root: [ctl, "-C", root, "series", os.path.join(root, run), "--column", "1"])
    yield Case("series s.csv", reports, lambda root: [
        ctl, "-C", root, "series", os.path.join(root, run), "--column", "1", "--to-file", os.path.join(root, "s.csv")])
    yield Case("archive", finished_single, lambda root: [stock.driver, "archive", root], again_may_refuse=True)
    yield Case("engine", engine_directory, lambda root: [os.path.join(root, "orvel401.exe"), "--dir", root],
               exits=(1, 2, 3), free=("echo.orv", "plot.orv", "chem", "Wasser.orv"), output=False)
    yield Case("engine --check", engine_directory, lambda root: [
        os.path.join(root, "orvel401.exe"), "--check", "--dir", root], exits=(1, 2, 3), free=("echo.orv",), output=False)
    stem = run[:-len(".run")]
    marked = (os.path.join(os.path.dirname(run), "marked-"), stem + ".new", stem + ".put")  # the next mark removes them
    mark = ["mark", "--mode", "focus", "--pesticide", "demo_D.psm", "--crop", "Maize", "--location", "Hamburg (H)"]
    yield Case("mark", stock.lay(home), lambda root: [ctl, "-C", root, *mark], again_may_refuse=True, free=marked)
    yield Case("mark --replace", finished, lambda root: [ctl, "-C", root, *mark, "--replace"], again_may_refuse=True,
               free=marked)
    yield Case("delete", finished, lambda root: [stock.driver, "delete", root], again_may_refuse=True)
    def archived(root):
        stock.lay(stock.whole)(root)
        stock.copy(stock.archive, os.path.join(root, "a.zip"))
        os.mkdir(os.path.join(root, "tmp"))

    def in_tmp(root, *words):
        return ["env", "TMPDIR=" + os.path.join(root, "tmp"), ctl, "-C", root, *words]

    def old_archive(root):
        stock.lay(stock.whole)(root)
        with open(os.path.join(root, "a.zip"), "wb") as file:
            file.write(b"old")

    yield Case("assessment: archive", old_archive, lambda root: [
        ctl, "-C", root, *stock.archiving(os.path.join(root, "a.zip"))])
    yield Case("assessment: restore", archived, lambda root: [
        ctl, "restore", os.path.join(root, "a.zip"), os.path.join(root, "new")])
    yield Case("assessment: compare", archived, lambda root: in_tmp(root, "compare", os.path.join(root, "a.zip"), root),
               free=("tmp/",))
    yield Case("assessment: reproduce", archived, lambda root: in_tmp(root, "reproduce", os.path.join(root, "a.zip")),
               free=("tmp/",))
    single = ["single", "--pesticide", "demo_D.psm", "--scenario", "H_maize.sze", "--climate", "H_01.cli", "--years", "1",
              "--wait"]
    yield Case("single --wait", stock.lay(stock.single), lambda root: [ctl, *single], again_may_refuse=True,
               free=("echo.orv", "plot.orv", "chem", "Wasser.orv", "progress.orv", "Run_", "run.json"), output=False)
    yield Case("init", lambda root: None, lambda root: [ctl, "init", os.path.join(root, "new")], free=("new/.orvel-init",),
               once="new/orvel401.exe")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("build")
    parser.add_argument("extent", nargs="?", choices=["sample", "all"], default="sample")
    parser.add_argument("--only", default="", help="cases whose name begins so")
    parser.add_argument("--part", default="0/1", help="I/N: one of N parts of the faults, from 0 on, for runs side by side")
    parser.add_argument("--most", type=int, default=3, help="calls of a kind in a sample")
    arguments = parser.parse_args()
    memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
    place = tempfile.mkdtemp(prefix="orvel-faults-", dir=memory)
    try:
        part, parts = (int(number) for number in arguments.part.split("/"))
        runner = Runner(os.path.abspath(arguments.build), place, part, parts)
        for case in cases(Stock(runner.build, place)):
            if not case.name.startswith(arguments.only):
                continue
            is_long = case.name in ("init", "assessment: reproduce")
            if arguments.extent == "all":
                runner.over(case, sys.maxsize, in_turn=case.name == "init")
            else:
                runner.over(case, 1 if is_long else arguments.most)
    finally:
        shutil.rmtree(place, ignore_errors=True)
    print(f"{runner.runs} runs, {len(runner.findings)} findings")
    return 1 if runner.findings else 0


if __name__ == "__main__":
    sys.exit(main())
