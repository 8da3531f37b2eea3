#!/usr/bin/env python3
"""Writes the pairing index of every language of the sample folder that names a target language.

languages/<language>/trans_<language>.dat names the target language on its first line; the index
languages/<language>/trans_index_<language>_<target>.dat then holds one line "own number|target number"
for every entry of master_<language>.txt whose translation has a counterpart in master_<target>.txt.

The match, for each master line in file order: split at "|" and skip lines without exactly three fields;
the key is the translation up to (not including) its first comma, with every "to " removed (so "to eat"
becomes "eat"; blanks are kept); the first target master line of three fields whose word equals the key
exactly gives the target number. Lines without a match write nothing.

Usage: make_demo_pairing.py [sample folder]   (default: data/demo of this repository)
"""
import os
import re
import sys
from pathlib import Path

# Windows-1252 leaves five bytes undefined; they stand for the control characters of the same value.
_UNDEFINED_BYTES = {0x81, 0x8D, 0x8F, 0x90, 0x9D}


def decode_cp1252(data: bytes) -> str:
    parts = []
    start = 0
    for position, byte in enumerate(data):
        if byte in _UNDEFINED_BYTES:
            parts.append(data[start:position].decode("cp1252"))
            parts.append(chr(byte))
            start = position + 1
    parts.append(data[start:].decode("cp1252"))
    return "".join(parts)


def read_lines(path: Path) -> list[str]:
    text = decode_cp1252(path.read_bytes())
    lines = re.split(r"\r\n|\r|\n", text)
    if lines and lines[-1] == "":
        lines.pop()
    return lines


def write_lines(path: Path, lines: list[str]) -> None:
    """Writes Windows-1252, CR LF; an unchanged file is left alone, a changed one replaced in one step."""
    data = "".join(line + "\r\n" for line in lines).encode("cp1252")
    if path.is_file() and path.read_bytes() == data:
        return
    scratch = path.with_name(path.name + ".new")
    scratch.write_bytes(data)
    os.replace(scratch, path)


def pairing_key(translation: str) -> str:
    comma = translation.find(",")
    key = translation if comma < 0 else translation[:comma]
    return key.replace("to ", "")


def pairing_lines(master: list[str], target_master: list[str]) -> list[str]:
    first_number = {}
    for line in target_master:
        fields = line.split("|")
        if len(fields) == 3 and fields[0] not in first_number:
            first_number[fields[0]] = fields[2]
    result = []
    for line in master:
        fields = line.split("|")
        if len(fields) != 3:
            continue
        target_number = first_number.get(pairing_key(fields[1]))
        if target_number is not None:
            result.append(f"{fields[2]}|{target_number}")
    return result


def main() -> int:
    repository = Path(__file__).resolve().parent.parent
    sample = Path(sys.argv[1]) if len(sys.argv) > 1 else repository / "data" / "demo"
    languages = sample / "languages"
    if not languages.is_dir():
        print(f"no languages folder in {sample}", file=sys.stderr)
        return 1
    for folder in sorted(languages.iterdir(), key=lambda p: p.name.lower()):
        language = folder.name
        trans_file = folder / f"trans_{language}.dat"
        if not trans_file.is_file():
            continue
        names = read_lines(trans_file)
        target = names[0] if names else ""
        target_master_file = languages / target / f"master_{target}.txt"
        if not target or not target_master_file.is_file():
            print(f"{trans_file}: no master file for target language '{target}'", file=sys.stderr)
            return 1
        master = read_lines(folder / f"master_{language}.txt")
        index = pairing_lines(master, read_lines(target_master_file))
        write_lines(folder / f"trans_index_{language}_{target}.dat", index)
        entries = sum(1 for line in master if len(line.split("|")) == 3)
        print(f"{language} -> {target}: {len(index)} of {entries} entries paired")
    return 0


if __name__ == "__main__":
    sys.exit(main())
