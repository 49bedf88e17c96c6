#!/usr/bin/env python3
"""Makes ready encounter tables by terrain and encounter level from the open monster stat
blocks' Environment, Challenge Rating and Organization columns.

    python3 tools/coredata/encounters2tables.py ../shared/srd/monsters/monster_statblocks.csv \
        data/core/races data/core/tables

For each climate and terrain the blocks name ("temperate forests", "warm deserts", ...) and
underground, and each band of encounter levels, a table "Encounters, Warm Deserts (EL 4-6)"
lists the creatures of that environment with a company of their organization whose
encounter level falls in the band (a dozen at the most): one creature of challenge rating CR is EL CR, and each
doubling of their number adds 2 (two are CR + 2, four CR + 4; a CR below 1 counts as
2 log2 CR + 1, so that two of CR 1/2 or four of CR 1/4 make EL 1). Only creatures with a ready
race are taken, and a table needs four. Rows share the d100 evenly. Tables it did not write
(hand-made ones have no marker line) are left alone.
"""

import csv
import math
import os
import re
import sys

MARKER = "# Made by encounters2tables.py from the open 3.5 monster stat blocks."
CLIMATES = ["cold", "temperate", "warm"]
TERRAINS = ["forests", "plains", "hills", "mountains", "marshes", "deserts", "aquatic"]
BANDS = [(1, 3), (4, 6), (7, 9), (10, 12), (13, 15), (16, 20)]
DICE = [2, 3, 4, 6, 8, 10, 12]
MAX_COMPANY = 12
WARRIOR = re.compile(r"^(.*), 1st-Level Warrior$")


def rating(text):
    m = re.match(r"^\s*(\d+)(?:/(\d+))?", text)
    if not m:
        return None
    return int(m.group(1)) / int(m.group(2) or 1)


def level_of(cr, count):
    base = cr if cr >= 1 else 2 * math.log2(cr) + 1
    return base + 2 * math.log2(count)


def companies(text):
    """(low, high) numbers of the organization's options: solitary 1, pair 2, "gang (2-4)"."""
    out = []
    t = text.lower()
    if "solitary" in t:
        out.append((1, 1))
    if re.search(r"\bpair\b", t):
        out.append((2, 2))
    for low, high in re.findall(r"\((\d+)\s*-\s*(\d+)", t):
        out.append((int(low), int(high)))
    return out


def count_text(low, high):
    """A dice expression giving low..high, trimmed to a die that exists."""
    if low == high:
        return str(low)
    sides = max(d for d in DICE if d <= high - low + 1)
    return "1d%d%s" % (sides, "+%d" % (low - 1) if low > 1 else "")


def fitting(cr, options, band):
    """The company whose encounter level falls in the band, the largest that does."""
    lo_el, hi_el = band
    best = None
    for low, high in options:
        # A table row is a meeting, not a war band: a dozen at the most.
        high = min(high, MAX_COMPANY)
        while high >= low and level_of(cr, high) > hi_el + 0.5:
            high -= 1
        if high < low or level_of(cr, low) < lo_el - 0.5:
            continue
        if level_of(cr, high) > hi_el + 0.5:
            continue
        if best is None or high > best[1]:
            best = (low, high)
    return best


def main():
    if len(sys.argv) != 4:
        sys.exit("usage: encounters2tables.py monster_statblocks.csv RACES_DIR TABLES_DIR")
    source, races_dir, out_dir = sys.argv[1:]
    races = {f[:-5] for f in os.listdir(races_dir) if f.endswith(".race")}
    # Its own tables of an earlier run go first: a band that no longer fills leaves none.
    for f in os.listdir(out_dir):
        path = os.path.join(out_dir, f)
        if f.endswith(".tsv"):
            with open(path, encoding="utf-8") as fh:
                if fh.readline().rstrip("\n") == MARKER:
                    os.remove(path)
    environments = ["%s %s" % (c, t) for c in CLIMATES for t in TERRAINS] + ["underground"]
    creatures = []
    with open(source, encoding="utf-8", newline="") as f:
        for row in csv.DictReader(f):
            name = row["name"].strip()
            warrior = WARRIOR.match(name)
            name = warrior.group(1) if warrior else name
            cr = rating(row["Challenge Rating"])
            if name not in races or cr is None:
                continue
            env = row["Environment"].lower()
            creatures.append((name, cr, companies(row["Organization"]) or [(1, 1)], env))
    written = 0
    for environment in environments:
        # "Encounters, Temperate Forest": the land in the singular, as the hand-made tables
        # name it (a hand-made table of the same name is kept).
        title = environment.title()
        for plural, single in (("Forests", "Forest"), ("Marshes", "Marsh"), ("Deserts", "Desert")):
            title = title.replace(plural, single)
        for band in BANDS:
            rows = []
            for name, cr, options, env in sorted(creatures):
                if environment not in env:
                    continue
                company = fitting(cr, options, band)
                if company:
                    rows.append((name, count_text(*company)))
            if len(rows) < 4:
                continue
            table = "Encounters, %s (EL %d-%d)" % (title, band[0], band[1])
            path = os.path.join(out_dir, table + ".tsv")
            if os.path.exists(path):
                with open(path, encoding="utf-8") as fh:
                    if fh.readline().rstrip("\n") != MARKER:
                        continue
            lines = [MARKER,
                     "# Random meetings in %s for a party of levels %d to %d." % (
                         environment, band[0], band[1]),
                     "die\t1d100",
                     "notes\tCreatures of these lands whose company makes an encounter level "
                     "of %d to %d." % band,
                     "roll\tcount\tkind\tname\tlevel\trace\talignment"]
            start = 1
            for i, (name, count) in enumerate(rows):
                end = start - 1 + (100 - start + 1) // (len(rows) - i)
                lines.append("%d-%d\t%s\tmonster\t%s" % (start, end, count, name))
                start = end + 1
            with open(path, "w", encoding="utf-8") as fh:
                fh.write("\n".join(lines) + "\n")
            written += 1
    print("wrote %d tables" % written)


if __name__ == "__main__":
    main()
