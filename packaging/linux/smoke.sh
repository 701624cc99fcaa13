#!/usr/bin/env bash
# Packs the program, unpacks it as a user does (a folder with blanks and Cyrillic in its name, a home of its own) and
# starts it there with the example; then registers it with the desktop, opens a project by its entry, and takes that
# back. Pictures of both starts: build/release/smoke/*.png.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
export LC_ALL=C.UTF-8

cmake --preset release >/dev/null
cmake --build --preset release --target program tlxtool

work=$PWD/build/release/smoke
rm -rf "$work" build/release/Tellurix-*.tar.gz
mkdir -p "$work/Полевые \"работы\" \$A\`и другие" "$work/home"
mkdir -m 700 "$work/runtime"
(cd build/release && cpack >/dev/null)
tar xzf build/release/Tellurix-*-linux-*.tar.gz -C "$work"/Полевые*
folder=$(echo "$work"/Полевые*/*)

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

# Of the build nothing stays behind in what is shipped, and of the program nothing is missing. That the modules are
# all there shows at the start, which ends without one.
for file in tellurix tlxtool hatch/gl/hatch.dat igkPreset/igkPreset.dat help/index.html Проекты/ZARECHNAYA/ZARECHNAYA.TLX \
    Прочти.txt Лицензии/Tellurix.txt register.sh; do
    [ -s "$folder/$file" ] || fail "$file is missing"
done
for file in "$folder"/tellurix "$folder"/tlxtool "$folder"/*.dll; do
    readelf -d "$file" | grep -Eq 'R(UN)?PATH' && fail "$file looks for libraries where it was built"
    ldd "$file" | grep 'not found' && fail "$file lacks libraries"
done
"$folder/tlxtool" check "$folder"/Проекты/*/*.TLX >/dev/null || [ $? = 1 ] || fail "tlxtool"

# Nothing of the user who runs this. The desktop's data of the system stay in sight.
unset XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME XDG_CURRENT_DESKTOP
export HOME=$work/home XDG_RUNTIME_DIR=$work/runtime LANG=C.UTF-8
# start PICTURE PROJECT COMMAND...: the window is there, and the project's lock says that it is open.
start() {
    local picture=$1 lock=$folder/Проекты/$2/$2.TLX.lock
    shift 2
    tools/on_virtual_display.sh "$picture" "$@"
    [ "$(convert "$picture" -format %k info:)" -gt 100 ] || fail "no window: $picture"
    [ -s "$lock" ] || fail "no project is open: $picture"
}
start "$work/started.png" ZARECHNAYA "$folder/tellurix" "$folder/Проекты/ZARECHNAYA/ZARECHNAYA.TLX"

"$folder/register.sh"
entry=$HOME/.local/share/applications/tellurix.desktop
desktop-file-validate "$entry"
copy=$HOME/Мой\ проект.tlx
cp "$folder/Проекты/LURGAN/LURGAN.TLX" "$copy"
type=application/x-tellurix-project
gio info -a standard::content-type "$copy" | grep -q "$type\$" || fail "the file's type is not known"
[ "$(xdg-mime query default $type)" = tellurix.desktop ] || fail "the type's program is not known"
start "$work/double_click.png" LURGAN sh -c 'gio launch "$@"; exec sleep 60' - "$entry" "$copy"

"$folder/register.sh" --undo
left=$(find "$HOME" -iname '*tellurix*'; grep -rl tellurix "$HOME" || true)
[ -z "$left" ] || fail "left behind after --undo: $left"
echo "The package starts and registers; look at $work/started.png and $work/double_click.png"
