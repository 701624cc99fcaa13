#!/usr/bin/env bash
# Makes the user's guide of its sources: make_help.sh FOLDER. Each page gets the list of all pages at its side, with
# the headings of its own below. Headings get the anchors that repositories show them under.
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
folder=$1
export LC_ALL=C.UTF-8

rm -rf "$folder"
mkdir -p "$folder"
cp -r "$here/pictures" "$here/style.css" "$folder/"

mapfile -t pages <"$here/pages.txt"
title_of() { sed -n '1s/^# //p' "$here/$1.md"; }
# anchor TEXT: in small letters, blanks as dashes, without punctuation.
anchor() {
    local text=${1,,}
    text=${text// /-}
    printf '%s' "${text//[^[:alnum:]_-]/}"
}

menu() {
    local page heading
    for page in "${pages[@]}"; do
        if [ "$page" != "$1" ]; then
            echo "<li><a href=\"$page.html\">$(title_of "$page")</a></li>"
            continue
        fi
        echo "<li class=\"here\"><a href=\"$page.html\">$(title_of "$page")</a><ul>"
        sed -n 's/^## //p' "$here/$page.md" | while read -r heading; do
            echo "<li><a href=\"#$(anchor "$heading")\">$heading</a></li>"
        done
        echo "</ul></li>"
    done
}

content() {
    local line
    cmark-gfm --unsafe -e table "$here/$1.md" | sed -E 's/href="([a-z]+)\.md/href="\1.html/g' | while IFS= read -r line; do
        if [[ $line =~ ^\<h2\>(.*)\</h2\>$ ]]; then
            line="<h2 id=\"$(anchor "${BASH_REMATCH[1]}")\">${BASH_REMATCH[1]}</h2>"
        fi
        printf '%s\n' "$line"
    done
}

for page in "${pages[@]}"; do
    {
        title=$(title_of "$page")
        [ "$page" = index ] || title+=" — Tellurix"
        cat <<HTML
<!DOCTYPE html>
<html lang="ru">
<head>
<meta charset="utf-8">
<meta http-equiv="X-UA-Compatible" content="IE=edge">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>$title</title>
<link rel="stylesheet" href="style.css">
</head>
<body>
<nav><ul>
$(menu "$page")
</ul></nav>
<main>
$(content "$page")
</main>
</body>
</html>
HTML
    } >"$folder/$page.html"
done
