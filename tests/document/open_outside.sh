#!/usr/bin/env bash
# What the writers of documents make, opened by programs of others: LibreOffice converts each file, readers of
# another make find texts, numbers, merged cells and repeated heads.
#   open_outside.sh WRITE_DOCUMENTS
set -euo pipefail
write_documents=$(readlink -f "$1")
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
