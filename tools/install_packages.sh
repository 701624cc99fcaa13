#!/usr/bin/env bash
# Installs the Debian packages of the given lists that are not there yet, and the locales that tests run under.
# Quiet and quick where nothing is missing.
set -euo pipefail

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

missing=()
for package in $(cat "$@" | sed 's/#.*//'); do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
for locale in ru_RU de_DE; do
    locale -a | grep -qi "^$locale.utf-\?8" || as_root localedef -i "$locale" -f UTF-8 "$locale.UTF-8"
done
