#!/usr/bin/env python3
"""validate_lines.py SCHEMA FILE: whether every line of a file is what a JSON Schema says.

With --whole the file is one JSON text. Says each line that is not, and ends with 1 then.
"""

import json
import sys

from jsonschema import Draft202012Validator

whole = sys.argv[1] == "--whole"
schema, file = sys.argv[1 + whole : 3 + whole]
with open(schema, encoding="utf-8") as text:
    rules = json.load(text)
Draft202012Validator.check_schema(rules)
validator = Draft202012Validator(rules)
with open(file, encoding="utf-8") as text:
    lines = [text.read()] if whole else text.read().splitlines()
wrong = 0
for line in lines:
    for error in validator.iter_errors(json.loads(line)):
        print(f"{error.json_path}: {error.message}\n  in {line[:500]}")
        wrong = 1
sys.exit(wrong)
