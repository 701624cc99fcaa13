#!/usr/bin/env bash
# Builds the program for Windows and lays out what a user gets: build/windows/Tellurix, and the same zipped. On a
# bare Debian 12 nothing has to be done before.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
export LC_ALL=C.UTF-8

tools/install_packages.sh packages.txt packages_windows.txt
cmake --preset windows >/dev/null
cmake --build --preset windows --target program tlxtool

build=build/windows
qt=build/qt5-mingw
folder=$build/Tellurix
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' $build/CMakeCache.txt)
compiler=x86_64-w64-mingw32-g++-posix

rm -rf $folder
# The list of what is shipped is the same for both systems: cmake/install_program.cmake.
cmake --install $build --component program --prefix $folder >/dev/null
x86_64-w64-mingw32-strip $folder/*.exe $folder/*.dll
mkdir -p $folder/Qt/plugins $folder/translations
for kind in platforms imageformats styles printsupport; do
    cp -r $qt/plugins/$kind $folder/Qt/plugins/
done
rm $folder/Qt/plugins/platforms/qminimal.dll
cp /usr/share/qt5/translations/qtbase_ru.qm $folder/translations/

# The libraries that all this needs, and what they need in turn. What is in neither place is of Windows itself.
needed_by() { x86_64-w64-mingw32-objdump -p "$@" 2>/dev/null | sed -n 's/.*DLL Name: //p' | sort -u; }
while
    added=no
    for name in $(find $folder -name '*.exe' -o -name '*.dll' | while read -r file; do needed_by "$file"; done | sort -u); do
        [ -e "$folder/$name" ] && continue
        for source in "$qt/bin/$name" "$($compiler -print-file-name="$name")"; do
            [ -f "$source" ] && x86_64-w64-mingw32-strip -o "$folder/$name" "$source" && added=yes && break
        done
    done
    [ $added = yes ]
do :; done

# Licences as text files that Windows' own editor shows.
licences=$folder/Лицензии
mkdir $licences
as_windows_text() { printf '\xef\xbb\xbf'; sed 's/\r*$/\r/' "$1"; }
as_windows_text packaging/windows/licences.txt >"$licences/Прочти.txt"
as_windows_text samples/sources/projects.txt >$folder/Проекты/Прочти.txt
as_windows_text LICENSE >$licences/Tellurix.txt
for text in LGPL-3 GPL-3; do
    as_windows_text /usr/share/common-licenses/$text >$licences/$text.txt
done
for package in nlohmann-json3-dev libcli11-dev libz-mingw-w64 fonts-liberation2 fonts-roboto-unhinted mingw-w64-common g++-mingw-w64-x86-64-posix; do
    as_windows_text /usr/share/doc/$package/copyright >$licences/$package.txt
done
as_windows_text build/windows_sources/minizip/copyright >$licences/minizip.txt

archive=Tellurix-$version-windows.zip
rm -f $build/Tellurix-*-windows.zip
(cd $build && cmake -E tar cf "$archive" --format=zip Tellurix)
echo "$folder: $(find $folder -type f | wc -l) files, $(du -sh $folder | cut -f1); $build/$archive: $(du -h $build/"$archive" | cut -f1)"
