#!/usr/bin/env bash
# Packs the pages that make_help.sh has made into one file for the help viewer of Windows, which shows the list of
# pages itself: make_chm.sh FOLDER FILE.chm
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
folder=$(readlink -f "$1")
file=$(readlink -m "$2")
export LC_ALL=C.UTF-8

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$folder/." "$work"
cd "$work"
sed -i '/^<nav>/,/<.nav>$/d; s/<body>/<body class="alone">/' ./*.html
echo '.alone main { margin-left: 0; padding: 0.5em 1.5em 2em; }' >>style.css
# Viewers take pages in the code page of the book's language, whatever the pages say; plain ASCII they all read.
perl -CSD -i -pe 's/([^\x00-\x7F])/"&#" . ord($1) . ";"/ge' ./*.html

mapfile -t pages <"$here/pages.txt"
# The list of pages is in the code page of the language that is named here.
{
    printf '[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=Tellurix.chm\nContents file=contents.hhc\n'
    printf 'Default topic=index.html\nDefault Window=main\nTitle=Tellurix\nLanguage=0x419 Russian\n\n'
    printf '[WINDOWS]\nmain="Tellurix","contents.hhc",,"index.html",,,,,,0x23520,260,0x304e,[60,40,1240,820],,,,,,,0\n\n[FILES]\n'
    printf '%s.html\n' "${pages[@]}"
    printf 'style.css\n'
    printf '%s\n' pictures/*.png
} >guide.hhp
{
    echo '<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN"><html><body><ul>'
    for page in "${pages[@]}"; do
        title=$(sed -n '1s/^# //p' "$here/$page.md")
        echo '<li><object type="text/sitemap">'
        echo "<param name=\"Name\" value=\"$title\"><param name=\"Local\" value=\"$page.html\"></object>"
    done
    echo '</ul></body></html>'
} | iconv -t CP1251 >contents.hhc
chmcmd guide.hhp >log.txt 2>&1 || { cat log.txt >&2; exit 1; }
[ -s Tellurix.chm ] || { cat log.txt >&2; exit 1; }
mv Tellurix.chm "$file"
