#!/usr/bin/env python3
"""Plays all scenarios and collects their pictures, and the faults of failed ones, in one page.

The scenarios are the folders beside this file and are played as the tests play them; demos are
seen through the scenario that links to their texts, and one that has none counts as failed. The
page needs nothing from outside its folder, which can be moved. Ends with 1 when a scenario failed.
"""

import argparse
import concurrent.futures
import os
import pathlib
import shutil
import sys
import time

import jinja2

import run_scenario

HERE = pathlib.Path(__file__).resolve().parent
DEMOS = HERE.parent.parent / "examples"


def scenarios():
    return sorted(script.parent for script in HERE.glob("*/script"))


def demos_without_scenario(demos, played):
    shown = {(scenario / "carousel").resolve() for scenario in played}
    return sorted({text.parent for text in demos.glob("*/*.mheg")} - shown)


def play_all(played, work, tools):
    """Results in the order of the scenarios, which are played in parallel."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(lambda one: run_scenario.run(one, work / one.name, tools), played))


def words_of(name):
    return name.removesuffix(".png").replace("_", " ")


def keep(picture, folder):
    """Copies a picture beside the page and returns its address; None if there is no picture."""
    if not picture.exists():
        return None
    folder.mkdir(parents=True, exist_ok=True)
    shutil.copy(picture, folder)
    return f"{folder.name}/{picture.name}"


def card_of(result, scenario, work, page_folder):
    """The entry of the page for one scenario."""
    folder = page_folder / result["name"]
    stored_folder = page_folder / f"{result['name']}.expected"
    pictures = []
    for name in result["pictures"]:
        wrong = keep(work / f"difference_{name}", folder)
        stored = keep(scenario / "expected" / name, stored_folder) if wrong else None
        seen = keep(work / name, folder)
        pictures.append({"words": words_of(name), "seen": seen, "wrong": wrong, "stored": stored})
    return dict(result, title=words_of(result["name"]).capitalize(), pictures=pictures)


def page_of(cards, missing, seconds):
    environment = jinja2.Environment(
        loader=jinja2.FileSystemLoader(HERE),
        undefined=jinja2.StrictUndefined,
        autoescape=True,
        trim_blocks=True,
        lstrip_blocks=True,
    )
    failed = [card for card in cards if card["problems"]]
    demos_first = sorted(cards, key=lambda card: not card["name"].startswith("demo_"))
    return environment.get_template("gallery.html").render(
        cards=failed + [card for card in demos_first if not card["problems"]],
        missing=[demo.name for demo in missing],
        passed=len(cards) - len(failed),
        failed=len(failed) + len(missing),
        seconds=round(seconds),
    )


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("page", type=pathlib.Path, help="file of the page, in a folder of its own")
    run_scenario.add_tool_options(parser)
    options = parser.parse_args()
    played, began = scenarios(), time.monotonic()
    results = play_all(played, options.work, options)
    missing = demos_without_scenario(DEMOS, played)
    folder = options.page.resolve().parent
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    cards = [
        card_of(result, scenario, options.work / scenario.name, folder)
        for result, scenario in zip(results, played)
    ]
    options.page.write_text(page_of(cards, missing, time.monotonic() - began))
    failed = len(missing) + sum(1 for result in results if result["problems"])
    print(f"{options.page}: {len(results) + len(missing) - failed} passed, {failed} failed")
    sys.exit(1 if failed or not results else 0)


if __name__ == "__main__":
    main()
