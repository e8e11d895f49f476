"""Plants faults and asks the tests of their room; see tools/mutate."""

import argparse
import os
import random
import subprocess
import sys
from pathlib import Path
from typing import List, NamedTuple

from faults import Fault, faults_in, line_of, planted, told
from rooms import ROOMS

WANTED = 0.97
TEST_SECONDS = 300  # a test program that takes longer hangs: the fault was noticed


class Plant(NamedTuple):
    room: str
    file: str
    fault: Fault


class Tree:
    """A copy of what is committed, built once; each fault costs a file and a few links."""

    def __init__(self, project: Path):
        self.source = project / "build" / "mutate"
        self.build = self.source / "build" / "dev"
        self.source.mkdir(parents=True, exist_ok=True)
        archive = subprocess.Popen(["git", "-C", str(project), "archive", "HEAD"], stdout=subprocess.PIPE)
        # Files that did not change keep their time, so that a second run does not build everything again.
        subprocess.run(["tar", "-x", "-C", str(self.source)], stdin=archive.stdout, check=True)
        if archive.wait() != 0:
            sys.exit("nothing committed to work on")

    def run(self, *command: str) -> int:
        return subprocess.run(command, cwd=self.source, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode

    def make(self, programs: List[str]) -> bool:
        return self.run("cmake", "--build", str(self.build), "--target", *programs) == 0

    def passes(self, program: str) -> bool:
        path = next(self.build.glob(f"tests/**/{program}"))
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        try:
            return (
                subprocess.run(
                    [str(path), "--gtest_fail_fast", "--gtest_brief=1"],
                    cwd=path.parent,
                    env=environment,
                    stdout=subprocess.DEVNULL,
                    stderr=subprocess.DEVNULL,
                    timeout=TEST_SECONDS,
                ).returncode
                == 0
            )
        except subprocess.TimeoutExpired:
            return False


def equivalents(project: Path) -> dict:
    """"FILE: LINE => LINE" to its reason, which follows behind a tab."""
    known = {}
    for line in (project / "tools" / "mutation" / "equivalent").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            name, _, reason = line.partition("\t")
            known[name] = reason
    return known


def plants_of(project: Path, rooms: List[str]) -> List[Plant]:
    plants = []
    for room in rooms:
        for pattern in ROOMS[room][0]:
            for path in sorted(project.glob(pattern)):
                file = str(path.relative_to(project))
                plants += [Plant(room, file, fault) for fault in faults_in(path.read_text(encoding="utf-8"))]
    return plants


def chosen(plants: List[Plant], count: int, seed: int) -> List[Plant]:
    """As many of each room, as far as it has them."""
    of_rooms = {}
    for plant in plants:
        of_rooms.setdefault(plant.room, []).append(plant)
    dice = random.Random(seed)
    for own in of_rooms.values():
        dice.shuffle(own)
    picked = []
    while len(picked) < count and any(of_rooms.values()):
        for own in of_rooms.values():
            if own and len(picked) < count:
                picked.append(own.pop())
    return picked


def fate(tree: Tree, plant: Plant) -> str:
    path = tree.source / plant.file
    text = path.read_text(encoding="utf-8")
    programs = ROOMS[plant.room][1]
    path.write_text(planted(text, plant.fault), encoding="utf-8")
    try:
        if not tree.make(programs):
            return "does not compile"
        return "survived" if all(tree.passes(program) for program in programs) else "noticed"
    finally:
        path.write_text(text, encoding="utf-8")


def options() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="tools/mutate")
    parser.add_argument("project", type=Path, help=argparse.SUPPRESS)
    parser.add_argument("count", type=int, nargs="?", default=200)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--room", choices=sorted(ROOMS), action="append")
    parser.add_argument("--list", action="store_true", help="the faults, without planting any")
    return parser.parse_args()


def main() -> int:
    asked = options()
    rooms = asked.room or list(ROOMS)
    picked = chosen(plants_of(asked.project, rooms), asked.count, asked.seed)
    texts = {plant.file: (asked.project / plant.file).read_text(encoding="utf-8") for plant in picked}
    if asked.list:
        for plant in picked:
            text = texts[plant.file]
            print(f"{plant.room} {plant.file}:{line_of(text, plant.fault)}: {told(text, plant.fault)}")
        return 0
    tree = Tree(asked.project)
    if tree.run("cmake", "--preset", "dev") != 0:
        sys.exit("the copy could not be configured")
    needed = sorted({program for room in rooms for program in ROOMS[room][1]})
    if not tree.make(needed) or not all(tree.passes(program) for program in needed):
        sys.exit("the tests do not pass without a fault")
    known = equivalents(asked.project)
    counts = {"noticed": 0, "survived": 0, "equivalent": 0, "does not compile": 0}
    for plant in picked:
        text = texts[plant.file]
        name = f"{plant.file}: {told(text, plant.fault)}"
        result = "equivalent" if name in known else fate(tree, plant)
        counts[result] += 1
        if result == "survived":
            print(f"{plant.file}:{line_of(text, plant.fault)}: {told(text, plant.fault)}", flush=True)
    judged = counts["noticed"] + counts["survived"]
    share = counts["noticed"] / judged if judged else 1
    print(f"{', '.join(f'{number} {kind}' for kind, number in counts.items())}: {share:.1%} noticed", file=sys.stderr)
    return 0 if share >= WANTED else 1


if __name__ == "__main__":
    sys.exit(main())
