# bash completion for quorvel-host                                                    -*- shell-script -*-
#
# Commands, options and their values are those of this version. What an extension offers (kinds, parameters, intents) is
# asked of it, through the very program that is about to be called.

# _quorvel_host_options COMMAND: a word for each option.
_quorvel_host_options() {
  local data='--container --snapshot --isolated --extension --info-plist'
  local place='--now --time-zone --locale'
  local drawing='--tint --no-background --redact --scale'
  local picture="--family --preset --size --configure --preview --appearance --mode $drawing"
  local own
  case $1 in
    list) own="--json --languages $data" ;;
    doctor | options) own="--json $data" ;;
    render) own="$picture --format --id-prefix --png --out -o $place --languages $data" ;;
    sheet)
      own="--states --extremes --modes --presets --accessories --components --languages --family --configure --preview
        $drawing --png --out -o $place $data"
      ;;
    gallery) own="--lang --beside --scale --png $place $data" ;;
    timeline) own="--json --family --configure $place --languages $data" ;;
    validate) own="--json $place --languages $data" ;;
    sample) own="--lang --out -o $place --languages" ;;
    perform) own="--no-open --open-with $data" ;;
    status) own='--json' ;;
    add | configure) own='--family --configure' ;;
    move) own='--output' ;;
    open) own='--region' ;;
    board) own='--no-open' ;;
    watch) own='--format' ;;
    reload | hide | remove) own='' ;;
    bench) own="--kind --images --warmup $picture --png $place --languages $data" ;;
    *) return ;;
  esac
  printf '%s\n' $own --help -h
}

# An option after which no value stands.
_quorvel_host_is_whole() {
  case $1 in
    --*=* | -o?* | --help | -h) ;;
    --json | --isolated | --preview | --no-background | --no-open | --states | --modes | --presets) ;;
    --extremes | --accessories | --components) ;;
    *) return 1 ;;
  esac
}

# _quorvel_host_offers PROGRAM kind|parameter|case|intent [KIND]: a line for each; a case as NAME=CASE.
_quorvel_host_offers() {
  "$1" list 2>/dev/null </dev/null | awk -v what="$2" -v only="${3:-}" '
    function offer(type, text) { if (type == what && (only == "" || only == kind)) print text }
    /^[^ ]/ { kind = $1 }
    /^  (system|accessory)[^:]*$/ { offer("kind", kind) }
    /^  --configure / {
      name = substr($2, 1, index($2, "=") - 1)
      offer("parameter", name)
      sub(/.*\): /, "")
      count = /^see / ? 0 : split($0, cases, ", ")
      for (i = 1; i <= count; ++i) offer("case", name "=" cases[i])
    }
    /^  runs / { offer("intent", $2) }'
}

# _quorvel_host_cases PROGRAM KIND NAME DATA-OPTION...: what a parameter may be; what the document gives where the extension
# does not say.
_quorvel_host_cases() {
  local cases='' line
  while read -r line; do
    [[ $line == "$3="* ]] && cases+=${line#*=}$'\n'
  done < <(_quorvel_host_offers "$1" case "$2")
  if [[ -z $cases && -n $2 ]]; then
    cases=$("$1" options "$2" "$3" "${@:4}" 2>/dev/null </dev/null | sed -n 's/^\([^ ][^ ]*\)  .*/\1/p')
  fi
  printf '%s\n' "$cases"
}

# _quorvel_host_placed PROGRAM: the ids of what the resident host shows.
_quorvel_host_placed() {
  "$1" status 2>/dev/null </dev/null | sed -n 's/^\(w[0-9]*\) .*/\1/p'
}

_quorvel_host() {
  local program=${1/#\~\//$HOME/}
  # Bash also splits at "=" and ":"; here a word ends at a blank.
  local words line=${COMP_LINE:0:COMP_POINT}
  read -ra words <<<"$line"
  [[ $line == *[[:blank:]] ]] && words+=('')
  local last=$((${#words[@]} - 1)) command=${words[1]:-} current=${words[-1]}

  # What stands before the word: how many arguments, which kind, where the document is, an option that waits for its value.
  local i word kind='' arguments=0 data=() option=''
  for ((i = 2; i < last; ++i)); do
    word=${words[i]}
    if [[ $word == --kind=* ]]; then
      kind=${word#*=}
    elif [[ $word != -?* ]]; then
      ((++arguments == 1)) && kind=$word
    elif _quorvel_host_is_whole "$word"; then
      continue
    elif ((i + 1 == last)); then
      option=$word
    else
      ((++i))
      case $word in
        --kind) kind=${words[i]} ;;
        --container | --snapshot) data+=("$word" "${words[i]/#\~\//$HOME/}") ;;
      esac
    fi
  done
  local prefix=''
  if [[ -z $option && $current == --*=* ]]; then
    option=${current%%=*}
    current=${current#*=}
    prefix=$option=
  fi

  local choices=''
  if ((last <= 1)); then
    choices='list render sheet gallery timeline options validate sample perform status reload hide add remove configure'
    choices+=' move open board watch bench doctor --help'
  else
    case $option in
      --family)
        choices='systemSmall systemMedium systemLarge accessoryCircular accessoryRectangular accessoryInline'
        ;;
      --preset) choices='standard compact stress' ;;
      --appearance) choices='light dark' ;;
      --mode) choices='fullColor accented vibrant' ;;
      --redact) choices='privacy placeholder privacy,placeholder' ;;
      --format)
        choices='png svg text tree placed accessibility'
        [[ $command == watch ]] && choices='waybar i3bar i3blocks polybar plain json'
        ;;
      --png) choices='fast small' ;;
      --time-zone) choices=$(awk '!/^#/ { print $3 }' /usr/share/zoneinfo/zone.tab 2>/dev/null) ;;
      --kind) choices=$(_quorvel_host_offers "$program" kind) ;;
      --configure)
        if [[ $current == [[:alnum:]]*=* ]]; then
          choices=$(_quorvel_host_cases "$program" "$kind" "${current%%=*}" "${data[@]}")
          prefix+=${current%%=*}=
          current=${current#*=}
        else
          choices=$(_quorvel_host_offers "$program" parameter "$kind" | sed 's/$/=/')
          compopt -o nospace
        fi
        ;;
      --container) compopt -o dirnames ;;
      --snapshot | --beside | --extension | --info-plist | --out | -o) compopt -o default ;;
      --open-with) choices=$(compgen -c -- "$current") ;;
      '')
        case $current:$command:$arguments in
          -*) choices=$(_quorvel_host_options "$command") ;;
          *:render:0 | *:timeline:0 | *:options:0 | *:sheet:*) choices=$(_quorvel_host_offers "$program" kind) ;;
          *:options:1) choices=$(_quorvel_host_offers "$program" parameter "$kind") ;;
          *:add:0) choices=$(_quorvel_host_offers "$program" kind) ;;
          *:reload:0 | *:open:0 | *:watch:0)
            choices="$(_quorvel_host_placed "$program") $(_quorvel_host_offers "$program" kind)"
            ;;
          *:remove:0 | *:configure:0 | *:move:0) choices=$(_quorvel_host_placed "$program") ;;
          *:hide:0) choices='on off toggle' ;;
          *:perform:0) choices=$(_quorvel_host_offers "$program" intent) ;;
          *:validate:*) compopt -o default ;;
          *:gallery:0) compopt -o dirnames ;;
        esac
        ;;
    esac
  fi

  # Bash replaces what follows the last "=", unless the user took it out of the characters that end a word.
  [[ $COMP_WORDBREAKS == *=* ]] && prefix=''
  # Not compgen -W: it would expand what a document says.
  COMPREPLY=()
  local IFS=$' \t\n' choice
  while read -r choice; do
    [[ -n $choice && $choice == "$current"* ]] || continue
    [[ $choice == *[^[:alnum:]_./=,-]* ]] && choice=$(printf %q "$choice")
    COMPREPLY+=("$prefix$choice")
  done < <(tr ' ' '\n' <<<"$choices")
}

complete -F _quorvel_host quorvel-host
