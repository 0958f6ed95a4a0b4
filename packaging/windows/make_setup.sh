#!/usr/bin/env bash
# Makes the installer from a folder that holds the program and its data. Folder and output are absolute paths.
#
#   packaging/windows/make_setup.sh VERSION FOLDER OUTPUT
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
version=$1 folder=$2 output=$3
files=$(mktemp)
trap 'rm -f "$files"' EXIT

# What the uninstaller deletes: the files of the folder, then the folders that are empty.
# shellcheck disable=SC2016
(cd "$folder" && find . -type f | sort | sed 's,^\./\(.*\),Delete "$INSTDIR\\\1",' &&
    find . -mindepth 1 -type d | sort -r | sed 's,^\./\(.*\),RMDir "$INSTDIR\\\1",') | sed '/"/s,/,\\,g' >"$files"
makensis -V2 -DVERSION="$version" -DSTAGE="$folder" -DFILES="$files" -DOUT="$output" \
    -DICON="$here/../../data/icons/vorn.ico" "$here/setup.nsi"
