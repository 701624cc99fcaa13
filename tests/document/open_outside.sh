#!/usr/bin/env bash
# What the program writes, opened by programs of others: LibreOffice converts each document, readers of another make
# find texts, numbers, merged cells and repeated heads; columns as PDF and DXF are checked and read back.
#   open_outside.sh WRITE_DOCUMENTS TLXTOOL
set -euo pipefail
write_documents=$(readlink -f "$1")
tlxtool=$(readlink -f "$2")
samples=$(readlink -f "$(dirname "$0")/../../samples")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
"$write_documents" .

for file in sample.docx framed.docx sample.odt framed.odt sample.xlsx; do
    mkdir "$file.pdf"
    soffice -env:UserInstallation="file://$folder/profile" --headless --convert-to pdf --outdir "$file.pdf" "$file" >/dev/null 2>&1
    pdf=$(ls "$file.pdf"/*.pdf)
    pages=$(pdfinfo "$pdf" | sed -n 's/^Pages: *//p')
    text=$(pdftotext -layout "$pdf" -)
    [ "$pages" -ge 4 ] || { echo "$file: $pages pages"; exit 1; }
    for wanted in 'Ведомость' 'Скважина' 'абсолютные отметки' "=cmd|' /C calc'!A0"; do
        grep -qF -- "$wanted" <<<"$text" || { echo "$file lacks: $wanted"; exit 1; }
    done
    # The head of the long table stands on each of its pages.
    [ "$(grep -c 'Скважина' <<<"$text")" -ge 3 ] || { echo "$file: the head does not repeat"; exit 1; }
    echo "$file: $pages pages"
done

/usr/bin/python3 - <<'PYTHON'
import docx, openpyxl

book = openpyxl.load_workbook("sample.xlsx")
sheet = book.worksheets[0]
assert sheet["E10"].value == 1.9 and sheet["E10"].number_format == "0.000"
assert "B8:C8" in sheet.merged_cells and sheet.freeze_panes == "A10" and sheet.auto_filter.ref == "A9:E80"
assert sheet.print_title_rows == "$8:$9"
traps = book.worksheets[1]
assert traps["B3"].value == "=cmd|' /C calc'!A0" and traps["B3"].data_type == "s"
assert len(traps["B10"].value) == 32767

text = docx.Document("sample.docx")
table = text.tables[0]
assert len(text.tables) == 2 and len(table.rows) == 73
assert table.cell(0, 1).text == table.cell(0, 2).text == "Глубина, м"
assert table.cell(0, 0).text == table.cell(1, 0).text == "Скважина"
names = {paragraph.style.name for paragraph in text.paragraphs}
assert {"Heading 1", "Caption", "List Bullet", "List Number", "Примечание"} <= names, names
assert [section.orientation for section in text.sections] == [0, 1, 0]
print("read back: XLSX and DOCX")
PYTHON

# ---- columns ----
"$tlxtool" build "$samples/sources/zarechnaya.json" site.TLX >/dev/null
"$tlxtool" draw site.TLX column --all --out columns.pdf >/dev/null
qpdf --check columns.pdf >qpdf.txt || { cat qpdf.txt; exit 1; }
pages=$(pdfinfo columns.pdf | sed -n 's/^Pages: *//p')
[ "$pages" -ge 10 ] || { echo "columns.pdf: $pages pages"; exit 1; }
[ "$(pdfinfo columns.pdf | sed -n 's/^Page size: *//p')" = '595 x 842 pts (A4)' ] || { pdfinfo columns.pdf; exit 1; }
# Each font is embedded and says which letters its signs are. That they are cut to what is used shows in the size
# alone: the toolkit does not mark it in the fonts' names, and whole they take 400 kB each.
pdffonts columns.pdf >fonts.txt
awk 'NR > 2 { ++fonts; if ($(NF-4) != "yes" || $(NF-2) != "yes") bad = 1 }
    END { exit bad || fonts < 2 }' fonts.txt || { cat fonts.txt; exit 1; }
[ "$(stat -c %s columns.pdf)" -lt 600000 ] || { ls -l columns.pdf; exit 1; }
pdftotext columns.pdf columns.txt
for wanted in 'Скважина №: Скв-1' 'ИГИ-27/19' 'Суглинок' 'Отметка устья: 113.47 м' 'вскрытая мощность' 'Листов'; do
    grep -qF -- "$wanted" columns.txt || { echo "columns.pdf lacks: $wanted"; exit 1; }
done
echo "columns.pdf: $pages pages"

"$tlxtool" draw site.TLX column --all --out column.dxf >/dev/null
/usr/bin/python3 - <<'PYTHON'
import glob, ezdxf

names = sorted(glob.glob("column_*.dxf"))
assert len(names) >= 10, names
texts = set()
for name in names:
    drawing = ezdxf.readfile(name)
    audit = drawing.audit()
    # The ends of polylines in blocks have no owner in this format: the reader gives them one only outside of them.
    fixes = [fix.message for fix in audit.fixes if "SEQEND" not in fix.message]
    assert not audit.errors and not fixes, (name, audit.errors, fixes)
    assert drawing.dxfversion == "AC1009" and drawing.encoding == "cp1251"
    left, bottom = drawing.header["$EXTMIN"][:2]
    right, top = drawing.header["$EXTMAX"][:2]
    assert (round(right - left), round(top - bottom)) == (210, 297), name
    layers = {layer.dxf.name for layer in drawing.layers}
    for entity in drawing.modelspace():
        assert entity.dxf.layer in layers, (name, entity)
        if entity.dxftype() == "TEXT":
            texts.add(entity.dxf.text)
    assert any(entity.dxftype() == "POLYLINE" and entity.is_closed for entity in drawing.modelspace()), name
assert any("Суглинок" in text for text in texts) and "ИГИ-27/19" in texts
assert any("№" in text for text in texts)
print("read back:", len(names), "DXF")
PYTHON
