#!/usr/bin/python3
# validate-report.py SCHEMA REPORT: exit 0 when the report fits the schema, 1 with the first fault otherwise.
import json
import sys

import jsonschema

schema = json.load(open(sys.argv[1]))
report = json.load(open(sys.argv[2]))
validator = jsonschema.validators.validator_for(schema)(schema, format_checker=jsonschema.FormatChecker())
errors = sorted(validator.iter_errors(report), key=lambda e: list(e.path))
for error in errors[:5]:
    print("/".join(str(p) for p in error.path) + ": " + error.message)
sys.exit(1 if errors else 0)
