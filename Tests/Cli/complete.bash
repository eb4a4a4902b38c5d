# complete.bash SCRIPT PROGRAM WORD... LAST: what pressing the tabulator after LAST offers, a line each; "<default>" and the
# like where file names are asked of bash itself.
set -u
source "$1"
shift
[[ "$(complete -p quorvel-host)" == 'complete -F _quorvel_host quorvel-host' ]] || exit 1

# Only allowed while bash completes.
compopt() { [[ $# -eq 2 && $1 == -o ]] && printf '<%s>\n' "$2"; }

COMP_WORDBREAKS=$' \t\n"\'><=;|&(:'
COMP_LINE=$*
COMP_POINT=${#COMP_LINE}
_quorvel_host "$1" "${@: -1}" "${@: -2:1}"
printf '%s\n' "${COMPREPLY[@]+"${COMPREPLY[@]}"}"
