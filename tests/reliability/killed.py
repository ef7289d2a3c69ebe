#!/usr/bin/env python3
"""killed.py generate|save|editing PROGRAM KILLS: kills a program at random moments while it rewrites
a site, saves a page again and again, or while a configuration is being edited. Afterwards each page
is the old or the new one, with its mode and owner; the next run leaves nothing else behind, and what
was edited is offered again. Generating is `headerdtc`'s, the rest killed_editor's.
"""
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

what, program, kills = sys.argv[1], sys.argv[2], int(sys.argv[3])
demo = pathlib.Path(__file__).resolve().parents[2] / "demo"
moments = random.Random(20260101)  # the same ones with each run, though not what is done then


def require(holds, text):
    if not holds:
        sys.exit(f"FAILED: {text}")


def run(*words):
    done = subprocess.run([program, *words], stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    require(done.returncode == 0, f"{words} ended with {done.returncode}: {done.stdout}")


def killed(words, seconds, has_begun=lambda: True):
    """Kills it within this time after something has come about, unless it ends before."""
    process = subprocess.Popen([program, *words], stdout=subprocess.DEVNULL, stderr=subprocess.STDOUT)
    while not has_begun() and process.poll() is None:
        pass
    time.sleep(moments.uniform(0, seconds))
    process.kill()
    return process.wait() < 0


def look(folder):
    """The pages, with all that has to be kept of them, and how many other files there are."""
    files = [file for file in folder.rglob("*") if file.is_file()]
    pages = {file: (file.read_bytes(), *file.stat()[0:1], *file.stat()[4:6])
             for file in files if file.suffix == ".asp"}
    return pages, sum(file.name.startswith(".headerdtc") for file in files)


def generate(site):
    template = site / "drive_c/Sites/Main/Orvane/include/DTC_TEMPLATE.ASP"
    text = template.read_bytes()
    templates = text, text.replace(b"ExtraFilters = ", b"UserFilters = ")
    folder = site / "pages"
    for number in range(200):
        page = folder / str(number % 8) / f"p{number}.asp"
        page.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(demo / "stock.asp", page)
        page.chmod((0o644, 0o640, 0o600, 0o664)[number % 4])
        if os.geteuid() == 0:
            os.chown(page, 1000 + number % 3, 2000)
    command = "generate", "--quiet", "--jobs", "2", folder
    versions = []
    for text in templates:
        template.write_bytes(text)
        begin = time.monotonic()
        run(*command)
        takes = time.monotonic() - begin
        versions.append(look(folder)[0])
    require(versions[0] != versions[1], "the two versions are the same")
    first = min(versions[0])
    done = amid = left = wanted = 0
    while done < kills:
        template.write_bytes(templates[wanted])
        # Replacing all pages takes a small part of the time: every second kill waits for it.
        old = first.stat().st_ino
        if killed(command, takes * 1.1) if done % 2 else killed(
                command, 0.0025, lambda: first.stat().st_ino != old):
            done += 1
            pages, others = look(folder)
            require(pages.keys() == versions[0].keys(), "a page is gone")
            new = sum(pages[page] == versions[wanted][page] for page in pages)
            for page, is_now in pages.items():
                require(is_now in (versions[0][page], versions[1][page]), f"{page} is neither old nor new")
            amid += 0 < new < len(pages)
            left += others > 0
        run(*command)
        require(look(folder) == (versions[wanted], 0), "not as it should be after the next run")
        wanted = 1 - wanted
    return f"{amid} with some pages new and some old, {left} with temporary files left"


# A page says which change was its last by the name of its stylesheet.
original = (demo / "stock.asp").read_bytes()


def number_of(page, before_saving=None):
    """Which change a page has, that is otherwise the whole one."""
    numbers = set(re.findall(rb"xsl/(\w+)\.xsl", page)) - {before_saving}
    require(len(numbers) == 1 and original == re.sub(rb"xsl/\w+\.xsl", b"xsl/Generic.xsl", page),
            "a page is neither the old nor the new one")
    number = numbers.pop()
    return 0 if number == b"Generic" else int(number)


def save(site):
    page = site / "stock.asp"
    page.chmod(0o640)
    last = left = 0

    def strays():
        return {file.name for file in site.iterdir() if file.name.startswith(".headerdtc")}

    for kill in range(kills):
        begin, before = page.stat().st_ino, strays()
        # Replacing takes a small part of the time: every second kill waits for it.
        has_begun = (lambda: strays() - before) if kill % 2 else (lambda: page.stat().st_ino != begin)
        require(killed(("save-forever", site, "-1"), 0.0005 if kill % 2 else 0.02, has_begun),
                "the editor ended by itself")
        number = number_of(page.read_bytes())
        require(number >= last, "a save was lost")
        require(page.stat().st_mode & 0o7777 == 0o640, "the page's mode was not kept")
        require(len(strays()) <= 1, "what an earlier kill left is still there")
        last, left = number, left + len(strays())
    run("save-forever", site, "1")
    require(number_of(page.read_bytes()) == last + 1, "the last save is not in the page")
    require(not strays(), "a temporary file is left after the next save")
    return f"within {last} saves of the editor: {left} left a temporary file"


def editing(site):
    longest = 60  # changes, ten a second: one is copied within a second, on a busy machine later
    most = 0
    for _ in range(kills):
        shutil.rmtree(site / "recovery", ignore_errors=True)
        require(killed(("edit-forever", site), 2, lambda: any(site.glob("recovery/**/*.page"))),
                "the editor ended by itself")
        typed = int((site / "typed").read_text())
        run("recover", site)
        # What is generated follows with the saving.
        lost = typed - number_of((site / "recovered").read_bytes(), b"Generic")
        require(-1 <= lost <= min(longest, typed - 1), f"of {typed} changes the last {lost} are lost")
        require((site / "stock.asp").read_bytes() == original, "the page itself was written")
        (site / "recovered").unlink()
        most = max(most, lost)
    return f"while a configuration was edited: at most the last {most / 10} s were missing"


with tempfile.TemporaryDirectory() as folder:
    shutil.copytree(demo, f"{folder}/site")
    told = {"generate": generate, "save": save, "editing": editing}[what](pathlib.Path(folder, "site"))
    print(f"{kills} kills, {told}; every page whole, no file left by the next run")
