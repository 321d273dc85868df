"""Tries an include from each folder of src/ into every other. The compiler must find the headers of the folders that
the table of floors allows, and of no others.

Usage: floors_hold.py SOURCE BUILD, the root of the checkout and the folder it was built in.
"""

import json
import pathlib
import shlex
import subprocess
import sys

source, build = pathlib.Path(sys.argv[1]).resolve() / "src", pathlib.Path(sys.argv[2])
table = {}  # maps a folder to the folders named beside it
for line in (build / "floors" / "table").read_text().splitlines():
    folder, *seen = line.split()
    table[folder] = seen


def allowed(folder):
    return {folder}.union(*(allowed(seen) for seen in table[folder]))


def folder_of(path):
    """The innermost folder of the table that holds the file."""
    inside = [folder for folder in table if (source / folder) in path.parents]
    return max(inside, key=len, default=None)


def found(command, directory):
    """The folders whose headers this compile command finds."""
    words = shlex.split(command)
    compiler = next(word for word in words if pathlib.Path(word).name.startswith(("c++", "g++", "clang++")))
    options = [word for word in words if word.startswith("-I")]
    headers = {folder: next((source / folder).glob("*.h"), None) for folder in table}
    text = "".join(f'#if __has_include("{folder}/{header.name}")\nfound {folder}\n#endif\n'
                   for folder, header in headers.items() if header)
    output = subprocess.run([compiler, *options, "-E", "-P", "-x", "c++", "-"], input=text, text=True,
                            capture_output=True, check=True, cwd=directory).stdout
    return {line.removeprefix("found ") for line in output.splitlines() if line}


tried = set()
faults = []
for entry in json.loads((build / "compile_commands.json").read_text()):
    folder = folder_of(pathlib.Path(entry["file"]))
    key = (folder, tuple(word for word in entry["command"].split() if word.startswith("-I")))
    if folder is None or key in tried:
        continue
    tried.add(key)
    faults += [f"src/{folder} can include {other}, which the table does not allow: {entry['file']}"
               for other in sorted(found(entry["command"], entry["directory"]) - allowed(folder))]
missing = set(table) - {folder for folder, _ in tried}
faults += [f"src/{folder} compiles nothing" for folder in sorted(missing)]
print("\n".join(faults) or f"{len(tried)} include paths of {len(table)} folders hold")
sys.exit(bool(faults))
