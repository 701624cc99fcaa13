#!/usr/bin/env bash
# Makes the toolkit for Windows, packaging/windows/qt5-mingw.tar.xz, in about 35 minutes on two cores. For who has
# no such archive yet.
#   build_qt.sh [--configure-only]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
version=5.15.8
work=$PWD/build/qt5-source
archive=$PWD/packaging/windows/qt5-mingw.tar.xz
prefix=/qt5-mingw

tools/install_packages.sh packages.txt packages_windows.txt

# Debian's source package, from where this machine has its packages, without a change in how it is set up. Debian's
# own patches are for its own system and stay out.
fetch() {
    mkdir -p "$work/parts" "$work/lists/partial"
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources}; do
        [ ! -e "$file" ] || sed 's/^deb /deb-src /; s/^Types:.*/Types: deb-src/' "$file" >"$work/parts/$(basename "$file")"
    done
    local apt=(apt-get -qq -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$work/parts" -o Dir::State::Lists="$work/lists")
    "${apt[@]}" update
    (cd "$work" && "${apt[@]}" source --download-only qtbase-opensource-src)
}
ls "$work"/qtbase-opensource-src_$version*.orig.tar.xz >/dev/null 2>&1 || fetch
if [ ! -d "$work/source" ]; then
    mkdir "$work/source"
    tar xf "$work"/qtbase-opensource-src_$version*.orig.tar.xz -C "$work/source" --strip-components=1
fi

# Shared libraries, so that a user may put others in their place. The source package lacks the tablet header.
rm -rf "$work/made" "$work/stage"
mkdir "$work/made"
cd "$work/made"
../source/configure -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32- -prefix $prefix \
    -opensource -confirm-license -release -shared -opengl desktop \
    -nomake examples -nomake tests -nomake tools -no-compile-examples -no-sql-sqlite -no-openssl -no-dbus -no-icu \
    -no-feature-sql -no-feature-testlib -no-feature-network -no-feature-tabletevent \
    -qt-zlib -qt-libpng -qt-libjpeg -qt-freetype -qt-pcre -qt-harfbuzz
[ "${1:-}" != --configure-only ] || exit 0

make -j"$(nproc)"
make install INSTALL_ROOT="$work/stage"

# What a program is built with and runs with; moc, rcc and uic come from the building system's own toolkit.
cd "$work/stage$prefix"
find . -mindepth 1 -maxdepth 1 ! -name bin ! -name include ! -name lib ! -name mkspecs ! -name plugins -exec rm -r {} +
find bin -type f ! -name 'Qt5*.dll' -delete
find mkspecs -mindepth 1 -maxdepth 1 ! -name win32-g++ -exec rm -r {} +
find lib -name '*.prl' -delete
find include -depth -type d -name $version -exec rm -r {} +
x86_64-w64-mingw32-strip bin/*.dll $(find plugins -name '*.dll')
sed -Ei 's|"[^"]*/bin/(qmake|moc|rcc|uic)(\.exe)?"|"/usr/lib/qt5/bin/\1"|' $(find lib/cmake -name '*ConfigExtras.cmake')
tar cJf "$archive" --sort=name --owner=0 --group=0 --transform "s|^\.|${prefix#/}|" .
