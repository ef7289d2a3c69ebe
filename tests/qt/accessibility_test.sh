#!/usr/bin/env bash
# accessibility_test.sh EDITOR PROJECT: the page editor as a screen reader meets it. Ends with 77,
# which is no verdict, where something that this needs is not installed.
set -euo pipefail
editor=$1
project=$2

if [[ ! ${HEADERDTC_IN_SESSION:-} ]]; then
    for needed in openbox xvfb-run xauth dbus-run-session /usr/libexec/at-spi2-registryd; do
        command -v "$needed" >/dev/null || { echo "$needed is missing" && exit 77; }
    done
    /usr/bin/python3 -c 'import pyatspi' 2>/dev/null || { echo "python3-pyatspi is missing" && exit 77; }
    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' EXIT
    mkdir -m 700 "$folder/run"
    HEADERDTC_IN_SESSION=$folder HOME=$folder XDG_RUNTIME_DIR=$folder/run XDG_CONFIG_HOME=$folder \
        XDG_DATA_HOME=$folder xvfb-run --auto-servernum --server-args="-screen 0 1600x1000x24" \
        dbus-run-session -- "$0" "$@"
    exit
fi

cd "$HEADERDTC_IN_SESSION"
cp -r "$project/demo" site
site/make-translations
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
# A window that is there before its manager is given no focus.
openbox --startup "touch managed" 2>/dev/null &
until [[ -e managed ]] || ! kill -0 $!; do sleep 0.1; done
"$editor" site/customers/regions/overview.asp &
pid=$!
trap 'kill "$pid" 2>/dev/null || true' EXIT
outcome=0
/usr/bin/python3 "$project/tests/qt/accessibility_client.py" || outcome=1
kill -0 "$pid" || { echo "the editor has ended" && exit 1; }
exit "$outcome"
