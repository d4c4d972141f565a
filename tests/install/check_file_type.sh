#!/usr/bin/env bash
# tests/install/check_file_type.sh PACKAGING_DIR SCRATCH_DIR
# The KOB file type as a desktop finds it once installed: the definition valid
# against the schema of shared-mime-info (the DTD inside its own
# freedesktop.org.xml), a file known by its name in any letter case or, where
# the name does not tell, by its section heads, and the desktop entry as the
# type's application.
set -euo pipefail
packaging=$1
work=$2
id=io.github.korvane.Korvane
type=model/x-kob

rm -rf "$work" && mkdir -p "$work"
database=/usr/share/mime/packages/freedesktop.org.xml
if [ -f "$database" ]; then
  sed -n '/^<!DOCTYPE mime-info \[/,/^\]>/p' "$database" | sed '1d;$d' >"$work/shared-mime-info.dtd"
  xmllint --noout --dtdvalid "$work/shared-mime-info.dtd" "$packaging/$id.xml"
else
  echo "$database missing: the definition is not checked against the schema"
fi

# Only the scratch install is looked at, the way a desktop without a session of its own does.
export XDG_DATA_DIRS=$work/share XDG_DATA_HOME=$work/none XDG_CONFIG_HOME=$work/none XDG_CONFIG_DIRS=$work/none
unset XDG_CURRENT_DESKTOP DESKTOP_SESSION KDE_FULL_SESSION GNOME_DESKTOP_SESSION_ID
mkdir -p "$work/share/mime/packages" "$work/share/applications" "$work/none"
cp "$packaging/$id.xml" "$work/share/mime/packages/"
cp "$packaging/$id.desktop" "$work/share/applications/"
update-mime-database "$work/share/mime"
update-desktop-database "$work/share/applications"

failed=0
while IFS='|' read -r name content expected; do
  printf "$content" >"$work/$name"
  found=$(xdg-mime query filetype "$work/$name")
  [ "$found" = "$expected" ] || { echo "$name: $found, expected $expected"; failed=1; }
done <<'ROWS'
crate.kob|hello\n|model/x-kob
CRATE.Kob|hello\n|model/x-kob
barrel|[Object]\r\nName=Barrel\r\n[Material - 0]\r\nTextureMap=b.tga\r\n|model/x-kob
tower|[LOD Information]\r\nNumberOfLOD=2\r\n|model/x-kob
notes|[Material - 0\r\nTextureMap=b.tga\r\n|text/plain
ROWS
default=$(xdg-mime query default "$type")
[ "$default" = "$id.desktop" ] || { echo "default application: \"$default\", expected $id.desktop"; failed=1; }
exit $failed
