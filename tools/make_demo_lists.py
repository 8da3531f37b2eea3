#!/usr/bin/env python3
"""Writes the word files of the sample course from tools/demo_words.txt.

Spanish: master_spanish.txt (every entry, sound numbers from 01000 up), one list per section of the
table, trans_spanish.dat naming English as the target. English: master_english.txt holds one entry per
pairing key of the Spanish entries (sound numbers from 00100 up), so the Spanish words pair with it;
its lists follow the Spanish lists of the same name; trans_english.dat names Spanish. Every file is
Windows-1252 with CR LF line ends. The pairing indexes come from make_demo_pairing.py, run at the end.

Usage: make_demo_lists.py [sample folder]   (default: data/demo of this repository)
"""
import sys
from pathlib import Path

sys.dont_write_bytecode = True  # keep tools/ free of __pycache__

from make_demo_pairing import main as make_pairing_indexes
from make_demo_pairing import pairing_key, write_lines

SPANISH_FIRST_NUMBER = 1000
ENGLISH_FIRST_NUMBER = 100
ENGLISH_LISTS = ("most_common_words", "numbers", "verbs")
MOST_COMMON_COUNT = 100


def fail(message: str) -> None:
    print(message, file=sys.stderr)
    sys.exit(1)


def read_table(path: Path):
    """Returns the entries [(word, translation)] in order of definition and the lists {name: [word]}."""
    entries = []
    translation_of = {}
    lists = {}
    current = None
    for number, raw in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        line = raw.strip()
        where = f"{path.name}:{number}"
        if not line or line.startswith("#"):
            continue
        if line.startswith("[") and line.endswith("]"):
            current = line[1:-1]
            if current in lists or current != current.lower() or " " in current:
                fail(f"{where}: bad or repeated list name '{current}'")
            lists[current] = []
            continue
        if current is None:
            fail(f"{where}: entry before the first list")
        if "|" in line:
            fields = line.split("|")
            if len(fields) != 2 or not all(fields):
                fail(f"{where}: expected 'word|translation'")
            word, translation = fields
            if word in translation_of:
                fail(f"{where}: '{word}' is defined twice")
            translation_of[word] = translation
            entries.append((word, translation))
        else:
            word = line
            if word not in translation_of:
                fail(f"{where}: '{word}' is not defined above")
        if word in lists[current]:
            fail(f"{where}: '{word}' is twice in list {current}")
        lists[current].append(word)
    return entries, lists


def check_translation(word: str, translation: str) -> None:
    """The pairing key must be the first rendering less its verb prefix, not a word mangled by the rule."""
    first = translation.split(",")[0]
    intended = first[3:] if first.startswith("to ") else first
    if pairing_key(translation) != intended:
        fail(f"'{word}|{translation}': the pairing rule turns it into '{pairing_key(translation)}'")
    for rendering in translation.split(", "):
        if not rendering or rendering != rendering.strip() or "," in rendering:
            fail(f"'{word}|{translation}': renderings are separated by exactly ', '")


def main() -> int:
    tools = Path(__file__).resolve().parent
    sample = Path(sys.argv[1]) if len(sys.argv) > 1 else tools.parent / "data" / "demo"
    entries, lists = read_table(tools / "demo_words.txt")
    if len(lists.get("most_common_words", [])) != MOST_COMMON_COUNT:
        fail(f"most_common_words must hold {MOST_COMMON_COUNT} words")

    spanish_line = {}
    english_words = {}  # pairing key -> Spanish words, in order of first use
    for index, (word, translation) in enumerate(entries):
        check_translation(word, translation)
        spanish_line[word] = f"{word}|{translation}|{SPANISH_FIRST_NUMBER + index:05d}"
        english_words.setdefault(pairing_key(translation), []).append(word)
    if SPANISH_FIRST_NUMBER + len(entries) > 10000 or ENGLISH_FIRST_NUMBER + len(english_words) > 1000:
        fail("too many entries for the sound number ranges")

    english_line = {}
    for index, (key, words) in enumerate(english_words.items()):
        english_line[key] = f"{key}|{', '.join(words)}|{ENGLISH_FIRST_NUMBER + index:05d}"

    spanish = sample / "languages" / "spanish"
    english = sample / "languages" / "english"
    spanish.mkdir(parents=True, exist_ok=True)
    english.mkdir(parents=True, exist_ok=True)

    write_lines(spanish / "master_spanish.txt", list(spanish_line.values()))
    write_lines(spanish / "trans_spanish.dat", ["english"])
    for name, words in lists.items():
        write_lines(spanish / f"{name}.txt", [spanish_line[word] for word in words])

    write_lines(english / "master_english.txt", list(english_line.values()))
    write_lines(english / "trans_english.dat", ["spanish"])
    for name in ENGLISH_LISTS:
        keys = dict.fromkeys(pairing_key(spanish_line[word].split("|")[1]) for word in lists[name])
        write_lines(english / f"{name}.txt", [english_line[key] for key in keys])

    # Lists no longer in the table go.
    written = {spanish / "master_spanish.txt", english / "master_english.txt"}
    written.update(spanish / f"{name}.txt" for name in lists)
    written.update(english / f"{name}.txt" for name in ENGLISH_LISTS)
    for old in [*spanish.glob("*.txt"), *english.glob("*.txt")]:
        if old not in written:
            old.unlink()

    print(f"spanish: {len(spanish_line)} entries, {len(lists)} lists; english: {len(english_line)} entries")
    sys.argv[1:] = [str(sample)]
    return make_pairing_indexes()


if __name__ == "__main__":
    sys.exit(main())
