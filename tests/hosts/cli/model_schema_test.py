"""The schema of models takes every example and refuses what import refuses, as far as a schema can tell."""

import json
import re
import sys

from jsonschema import Draft202012Validator


def read(path):
    with open(path, encoding="utf-8") as file:
        return json.loads(re.sub(r"^\s*//.*$", "", file.read(), flags=re.M))


def main(schema_path, refused_path, *examples):
    schema = read(schema_path)
    Draft202012Validator.check_schema(schema)
    validator = Draft202012Validator(schema)
    complaints = []
    for path in examples:
        for error in validator.iter_errors(read(path)):
            complaints.append(f"{path}: {error.json_path}: {error.message}")
    refused = read(refused_path)
    for case in refused:
        if case.get("schema") == "no JSON":
            continue
        takes = validator.is_valid(json.loads(case["model"]))
        if takes != (case.get("schema") == "takes it"):
            complaints.append(f"{'takes' if takes else 'refuses'} {case['model']}")
    print("\n".join(complaints) or f"{len(examples)} models taken, {len(refused)} looked at")
    return 1 if complaints or not examples or not refused else 0


sys.exit(main(*sys.argv[1:]))
