"""check_report.py GRIDHOST: previews and prints a table without a screen, and reads the PDF's pages back with pdftotext."""
import os
import re
import subprocess
import sys
import tempfile

ROWS = 700
HEADER = {"en": "Sales of the year", "el": "Πωλήσεις του έτους"}
COUNTER = {"en": "Page {} of {}", "el": "Σελίδα {} από {}"}
DATE = re.compile(r"\b\d\d-\w{3}-\d\d\b")


def words(row):
    return " ".join(f"λέξη{row}x{i}" for i in range(row % 60))


def play(folder, language, lines):
    script = os.path.join(folder, "print.vgs")
    with open(script, "w", encoding="utf-8") as file:
        file.write("\n".join(lines))
    return subprocess.run([*sys.argv[1:], "--frontend", "headless", "--language", language, "--data",
                           os.path.join(folder, "rows.csv"), "--play", script, "--out", folder],
                          stderr=subprocess.PIPE, stdout=subprocess.PIPE, text=True, check=False)


def pages_of(pdf):
    text = subprocess.run(["pdftotext", "-layout", pdf, "-"], stdout=subprocess.PIPE, text=True, check=True).stdout
    return text.split("\f")[:-1]


def check(language):
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "rows.csv"), "w", encoding="utf-8") as file:
            file.write("Όνομα,Amount,Notes\n")
            file.writelines(f"όνομα{row:04},{row * 7},{words(row)}\n" for row in range(ROWS))
        preview = [f'call ShowPreviewX "{HEADER[language]}"', "form preview.json", "click GEXPreview1.toolbar.close",
                   "print report.pdf"]
        layout = ["call ShowGeneral", "choose cboPreviewLine Notes", "enter txtPreviewRows 20", "click cmdOK"]
        for lines in (preview, layout + preview):
            played = play(folder, language, lines)
            assert played.returncode == 0, played.stderr
            pages = pages_of(os.path.join(folder, "report.pdf"))
            for number, page in enumerate(pages, start=1):
                for wanted in (HEADER[language], COUNTER[language].format(number, len(pages)), "Όνομα", "Amount"):
                    assert wanted in page, f"{wanted} is not on page {number}: {page}"
                assert DATE.search(page), f"no date on page {number}: {page}"
            found = re.findall(r"(όνομα\d{4})\s+(\d+)", "".join(pages))
            assert found == [(f"όνομα{row:04}", str(row * 7)) for row in range(ROWS)], found[:5]
            with open(os.path.join(folder, "preview.json"), encoding="utf-8") as form:
                counted = COUNTER[language].format(1, len(pages))
                assert counted in form.read(), f"the preview does not say {counted}"
        notes = re.findall(r"λέξη\d+x\d+", "".join(pages))
        assert notes == " ".join(filter(None, map(words, range(ROWS)))).split(), "previews differ"
        print(f"{language}: {len(pages)} pages as expected")


for tongue in HEADER:
    check(tongue)
