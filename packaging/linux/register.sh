#!/bin/sh
# Makes this copy of Tellurix known to the user's desktop: an entry in the menu, the type and the icon of project
# files, so that a double click opens them. For this user alone; register.sh --undo takes it back.
set -eu
here=$(dirname "$(readlink -f "$0")")
data=${XDG_DATA_HOME:-$HOME/.local/share}
config=${XDG_CONFIG_HOME:-$HOME/.config}
type=application/x-tellurix-project

entry=$data/applications/tellurix.desktop
package=$data/mime/packages/tellurix-project.xml
program_icon=$data/icons/hicolor/scalable/apps/tellurix.svg
file_icon=$data/icons/hicolor/scalable/mimetypes/application-x-tellurix-project.svg

# Desktops read the lists that these commands make; those that are missing here are not used here either.
refresh() {
    for folder in "$data/mime" "$data/applications" "$data/icons/hicolor"; do
        [ -d "$folder" ] || continue
        case $folder in
            */mime) command=update-mime-database ;;
            */applications) command=update-desktop-database ;;
            *) command='gtk-update-icon-cache -q -t' ;;
        esac
        if command -v "${command%% *}" >/dev/null; then
            $command "$folder" >/dev/null 2>&1 || echo "Не удалось обновить список: $command $folder" >&2
        fi
    done
}

case ${1:-} in
    '')
        [ -x "$here/tellurix" ] || { echo "Рядом нет программы: $here/tellurix" >&2; exit 1; }
        for file in "$entry" "$package" "$program_icon" "$file_icon"; do
            mkdir -p "$(dirname "$file")"
        done
        # In the entry a path stands in quotes, where four characters need a backslash, which the file doubles, and
        # a percent sign is written twice. The second pass makes the text fit for sed itself.
        path=$(printf '%s' "$here/tellurix" | sed -e 's/[\\"`$]/\\&/g' -e 's/\\/\\\\/g' -e 's/%/%%/g' -e 's/[\\&|]/\\&/g')
        sed "s|@PROGRAM@|\"$path\"|" "$here/desktop/tellurix.desktop" >"$entry"
        cp "$here/desktop/tellurix-project.xml" "$package"
        cp "$here/desktop/tellurix.svg" "$program_icon"
        cp "$here/desktop/tellurix-project.svg" "$file_icon"
        refresh
        if command -v xdg-mime >/dev/null; then
            xdg-mime default tellurix.desktop $type
        else
            echo "Нет команды xdg-mime (пакет xdg-utils): программу для файлов .TLX выберите сами." >&2
        fi
        echo "Tellurix зарегистрирован для пользователя $(id -un): меню и файлы .TLX. Отменить: register.sh --undo"
        ;;
    --undo)
        rm -f "$entry" "$package" "$program_icon" "$file_icon"
        refresh
        for list in "$config/mimeapps.list" "$data/applications/mimeapps.list"; do
            [ ! -f "$list" ] || sed -i "\|^$type=tellurix.desktop;*\$|d" "$list"
        done
        echo "Tellurix больше не зарегистрирован. Программа и проекты остались на месте."
        ;;
    *)
        echo "register.sh         пункт меню и открытие файлов .TLX двойным щелчком, только для вас"
        echo "register.sh --undo  отменить"
        [ "$1" = --help ] || exit 2
        ;;
esac
