#!/bin/sh
# The launcher puts the settings into the user's configuration folder once, then starts the program.
#
#   launcher_test.sh LAUNCHER TEMPLATE LIBEXEC_FROM_BIN DATA_FROM_BIN
set -eu
launcher=$1 template=$2 libexec=$3 data=$4
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
fail() {
    echo "$1" >&2
    exit 1
}

bin="$prefix/usr local/bin"
mkdir -p "$bin" "$bin/$libexec/crownlab" "$bin/$data/crownlab" "$prefix/home folder"
cp "$launcher" "$bin/crownlab"
cp "$template" "$bin/$data/crownlab/Crownlab.ini"
printf '#!/bin/sh\necho "started $#"\n' >"$bin/$libexec/crownlab/crownlab"
chmod +x "$bin/crownlab" "$bin/$libexec/crownlab/crownlab"
ln -s "$bin/crownlab" "$prefix/link"
export HOME="$prefix/home folder"
unset XDG_CONFIG_HOME
settings="$HOME/.config/crownlab/Crownlab.ini"

[ "$("$prefix/link" a b)" = "started 2" ] || fail "the program wasn't started"
printf '%s\r\nSurferV8\r\n' "$HOME" | cmp - "$settings" || fail "the settings aren't those of the template"

printf 'mine\r\nSurferV6\r\n' >"$settings"
"$prefix/link" >/dev/null
printf 'mine\r\nSurferV6\r\n' | cmp - "$settings" || fail "settings that were there were replaced"

XDG_CONFIG_HOME="$prefix/config" "$bin/crownlab" >/dev/null
[ -f "$prefix/config/crownlab/Crownlab.ini" ] || fail "XDG_CONFIG_HOME wasn't heeded"
[ "$(ls "$HOME/.config/crownlab")" = Crownlab.ini ] || fail "something else was left there"
