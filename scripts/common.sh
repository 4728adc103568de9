# Sourced by each script, with whose arguments it runs. --help shows the comment at the script's head.

if [[ ${1:-} == --help || ${1:-} == -h ]]; then
  awk 'NR > 1 && !/^#/ { exit } NR > 1 { sub(/^# ?/, ""); print }' "$0"
  exit 0
fi

# Refuses every argument that the pattern does not match: takes PATTERN ARGUMENT...
takes() {
  local pattern=$1 argument
  for argument in "${@:2}"; do
    [[ $argument =~ ^($pattern)$ ]] && continue
    echo "$(basename "$0") does not know \"$argument\"; see $(basename "$0") --help" >&2
    exit 2
  done
}
