#!/usr/bin/env bash
# Brings the sources of small libraries that Debian has for its own system only, from its source packages, with its
# patches: build/windows_sources/NAME. A few seconds; the second time nothing.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
folder=$PWD/build/windows_sources
[ ! -e "$folder/fetched" ] || exit 0

rm -rf "$folder"
mkdir -p "$folder/parts" "$folder/lists/partial"
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources}; do
    [ ! -e "$file" ] || ! grep -q 'debian\.org' "$file" \
        || sed 's/^deb /deb-src /; s/^Types:.*/Types: deb-src/' "$file" >"$folder/parts/$(basename "$file")"
done
apt=(apt-get -qq -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$folder/parts" -o Dir::State::Lists="$folder/lists"
    -o APT::Sandbox::User=root)
"${apt[@]}" update
cd "$folder"
"${apt[@]}" source --download-only minizip pugixml
for name in minizip pugixml; do
    mkdir $name
    tar xf ${name}_*.orig.tar.* -C $name --strip-components=1
    tar xf ${name}_*.debian.tar.*
    # Those of the build system touch files that are not in use here.
    while read -r patch; do
        case $patch in automake* | include*) continue ;; esac
        patch -s -d $name -p1 <"debian/patches/$patch"
    done < <(sed 's/#.*//; /^ *$/d' debian/patches/series 2>/dev/null || true)
    cp debian/copyright $name/
    rm -r debian
done
rm -rf parts lists ./*.tar.* ./*.dsc
touch fetched
