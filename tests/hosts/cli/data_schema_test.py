"""What korvex schema prints takes the example's object, and korvex save refuses whatever it refuses."""

import json
import pathlib
import subprocess
import sys
import tempfile

from jsonschema import Draft202012Validator

REFUSED = [
    '"text"',
    "7",
    "null",
    "[[]]",
    '{"Colour": 1}',
    '{"OrderNumber": 5}',
    '{"OrderedOn": "tomorrow"}',
    '{"OrderedOn": 20260101}',
    '{"State": 40000}',
    '{"State": 1.5}',
    '{"State": "4"}',
    '{"Total": "much"}',
    '{"Total": 1e15}',
    '{"DiscountRate": 1e39}',
    '{"IsPaid": 1}',
    '{"PriceCalculator": 5}',
    '{"PriceCalculator": {"$base64": "AAAA", "more": 1}}',
    '{"Customer": null}',
    '{"Customer": {"Colour": 1}}',
    '{"Lines": []}',
    '{"Lines": {"$items": {}}}',
    '{"Lines": {"$items": [{"Quantity": "many"}]}}',
    '{"Lines": {"$items": [{}, {"Colour": 1}]}}',
    '{"$items": []}',
    '{"$state": {"Counter": null}}',
    '{"$state": {"Colour": 1}}',
    '[{}, {"State": []}]',
]


def main(korvex, model, example):
    def run(*words):
        return subprocess.run([korvex, *words], capture_output=True, text=True, encoding="utf-8")

    with tempfile.TemporaryDirectory() as folder:
        repository, target, file = (str(pathlib.Path(folder, name)) for name in ("r.db", "t.db", "o.json"))
        definition = ["--repository", repository, "--storage", "Orders"]
        connection = ["--connection", "Provider=SQLite;Data Source=" + target]
        for words in (["new", repository], ["import", repository, model]):
            assert run("repository", *words).returncode == 0
        assert run("relate", repository).returncode == 0
        assert run("database", "create", *definition, *connection).returncode == 0
        schema = json.loads(run("schema", *definition).stdout)
        Draft202012Validator.check_schema(schema)
        validator = Draft202012Validator(schema)
        complaints = []

        def expect(text, is_taken):
            pathlib.Path(file).write_text(text, encoding="utf-8")
            if validator.is_valid(json.loads(text)) != is_taken:
                complaints.append(f"the schema {'refuses' if is_taken else 'takes'} {text[:100]}")
            saved = run("save", *definition, *connection, file)
            if (saved.returncode == 0) != is_taken:
                complaints.append(f"save: {saved.returncode} for {text[:100]}: {saved.stderr}")

        order = pathlib.Path(example).read_text(encoding="utf-8")
        for text in (order, f"[{order}]", run("load", *definition, *connection, "--key", "1").stdout or order):
            expect(text, True)
        for text in REFUSED:
            expect(text, False)
    print("\n".join(complaints) or f"{len(REFUSED)} objects refused by both")
    return 1 if complaints else 0


sys.exit(main(*sys.argv[1:]))
