#!/usr/bin/python3
"""Tests that a report has the same findings in all three formats, and that the SARIF format matches
an excerpt of its schema.

Usage: report_forms_test.py MHEG
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import urllib.parse

import jsonschema

TESTS = pathlib.Path(__file__).resolve().parent.parent
SCHEMA = json.loads((TESTS / "products" / "sarif_excerpt.json").read_text())


def report(form, *paths):
    command = [sys.argv[1], "check", f"--format={form}", *map(str, paths)]
    folder = TESTS / "unit" / "mheg"
    return subprocess.run(command, stdout=subprocess.PIPE, cwd=folder, check=False).stdout


def of_text(paths):
    form = re.compile(r"(.*?)(?::(\d+):(\d+))?: (error|warning|note): "
                      r"(?:object (-?\d+): )?(.*) \[([a-z0-9-]+)\]")
    excerpt = re.compile(r" *\d* \| .*")
    lines = report("text", *paths).decode("utf-8").splitlines()
    return [form.fullmatch(line).groups() for line in lines if not excerpt.fullmatch(line)]


def of_json(paths):
    names = ("file", "line", "column", "level", "object", "text", "rule")
    findings = json.loads(report("json", *paths))
    return [tuple(None if finding.get(name) is None else str(finding[name]) for name in names)
            for finding in findings]


def of_sarif(paths):
    findings = []
    sarif = json.loads(report("sarif", *paths))
    jsonschema.validate(sarif, SCHEMA)
    rules = sarif["runs"][0]["tool"]["driver"]["rules"]
    for result in sarif["runs"][0]["results"]:
        assert rules[result["ruleIndex"]]["id"] == result["ruleId"]
        location = result["locations"][0]["physicalLocation"]
        uri = urllib.parse.urlsplit(location["artifactLocation"]["uri"])
        region = location.get("region", {})
        message = re.fullmatch(r"(?:object (-?\d+): )?(.*)", result["message"]["text"])
        findings.append((urllib.parse.unquote(uri.path), *(
            str(region[name]) if name in region else None for name in ("startLine", "startColumn")),
            result["level"], *message.groups(), result["ruleId"]))
    return findings


class ReportForms(unittest.TestCase):
    def test_sarif_has_the_version_of_the_tool(self):
        driver = json.loads(report("sarif", "faulty"))["runs"][0]["tool"]["driver"]
        version = subprocess.run([sys.argv[1], "--version"], stdout=subprocess.PIPE, check=True)
        self.assertEqual(f"mheg {driver['semanticVersion']}\n", version.stdout.decode())

    def test_all_forms_have_the_same_findings(self):
        findings = of_text(["faulty"])
        self.assertGreater(len(findings), 20)
        self.assertEqual(of_json(["faulty"]), findings)
        self.assertEqual(of_sarif(["faulty"]), findings)

    def test_a_report_without_findings_is_valid(self):
        with tempfile.TemporaryDirectory() as folder:
            pathlib.Path(folder, "s.mheg").write_text('{:Scene ("~/s" 0) :SceneCS 720 576}')
            for findings in (of_text, of_json, of_sarif):
                self.assertEqual(findings([folder]), [])

    def test_any_path_and_any_name_is_written(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, 'a "b" 100%#ü?.mheg')
            file.write_bytes(b'{:Scene ("~/s" 0) :SceneCS 720 576'
                             b' :OnStartUp (:Run(("~/\xfc\x01\\\\" 1)))}')
            for findings in (of_json([file]), of_sarif([file])):
                self.assertIn(str(file), [finding[0] for finding in findings])
                self.assertIn("refers to the group ~/ü\x01\\, which is not there",
                              [finding[5] for finding in findings])

    def test_the_schema_rejects_a_result_without_a_message(self):
        sarif = json.loads(report("sarif", "faulty"))
        del sarif["runs"][0]["results"][0]["message"]
        with self.assertRaises(jsonschema.ValidationError):
            jsonschema.validate(sarif, SCHEMA)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
