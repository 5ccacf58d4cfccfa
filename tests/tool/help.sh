#!/usr/bin/env bash
# Every subcommand has an example, a manual page that says what its help says, and shell completion that knows its
# options; docs/json.md knows every subcommand that prints JSON.   help.sh PROGRAM SOURCE-DIR MANUAL-DIR
set -uo pipefail

program=$1
source_dir=$2
manual=$3
failures=0

fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

# What completion offers after the words of a command line, the last of which may be unfinished.
complete_words() {
    COMP_WORDS=("$program" "$@")
    COMP_CWORD=$#
    _lxcolor "$program"
}

offers() { # WANTED WORD...
    local wanted=$1
    shift
    complete_words "$@"
    printf '%s\n' "${COMPREPLY[@]}" | grep -qxF -e "$wanted" || fail "completion of '$*' lacks '$wanted'"
}

. "$source_dir/apps/lxcolor/completions/lxcolor"

# From the help alone, not from what completion and manual are made of.
mapfile -t subcommands < <("$program" --help | sed -n '/^Subcommands/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ ${#subcommands[@]} -ge 9 ] || fail "only ${#subcommands[@]} subcommands in the help"

for subcommand in "${subcommands[@]}"; do
    offers "$subcommand" "${subcommand:0:2}"
    help=$("$program" "$subcommand" --help)
    grep -qE "^  lxcolor $subcommand( |$)" <(sed -n '/^Examples\{0,1\}:/,/^$/p' <<<"$help") ||
        fail "$subcommand --help has no example"
    mapfile -t options < <(grep -oE '^  (-[a-z], )?--[a-z-]+' <<<"$help" | grep -oE -- '--[a-z-]+')
    [ ${#options[@]} -ge 3 ] || fail "$subcommand --help shows ${#options[@]} options"
    page=$manual/lxcolor-$subcommand.1
    [ -s "$page" ] || fail "$subcommand has no manual page"
    for option in "${options[@]}"; do
        offers "$option" "$subcommand" "${option:0:4}"
        grep -qF -e "\\fB${option//-/\\-}\\fR" "$page" || fail "the manual page of $subcommand lacks $option"
    done
    for section in NAME SYNOPSIS DESCRIPTION OPTIONS EXAMPLES; do
        grep -qx ".SH $section" "$page" || fail "the manual page of $subcommand lacks $section"
    done
    if [[ " ${options[*]} " == *" --json "* ]]; then
        grep -qx "## $subcommand" "$source_dir/docs/json.md" || fail "docs/json.md lacks $subcommand"
    else
        fail "$subcommand has no --json"
    fi
done
pages=("$manual"/*.1)
[ ${#pages[@]} -eq $((${#subcommands[@]} + 1)) ] || fail "${#pages[@]} pages for ${#subcommands[@]} subcommands"

if command -v groff >/dev/null; then
    for page in "${pages[@]}"; do
        warnings=$(groff -man -Tutf8 -ww -z "$page" 2>&1)
        [ -z "$warnings" ] || fail "$warnings"
    done
fi

offers 'WashLine\ QP6\ RGBW' dmx --fixture Wash
offers 'WashLine QP6 RGBW' dmx --fixture '"Wash'
offers 'Generic\ RGB' plot out.png --match Gen
offers 'RGBW\ In/Out' match --io-mode RGBW
offers json dmx --format = j
offers json dmx --format =
offers tungsten dmx --direct-curve t
offers steelblue dmx red steel
cd "$source_dir" || exit 1
offers README.md swatches READ
offers README.md dmx --profiles READ
offers README.md plot READ
offers convert palette co
offers README.md palette convert READ
offers 'WashLine\ QP6\ RGBW' import README.md --profile Wash
offers gpl palette convert a b --to g
complete_words dmx --bits 3
[ ${#COMPREPLY[@]} -eq 0 ] || fail "completion offers ${COMPREPLY[*]} for bits that there are not"

echo "$failures failures in ${#subcommands[@]} subcommands"
[ "$failures" -eq 0 ]
