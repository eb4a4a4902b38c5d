# bash completion for quorvel-import                                                  -*- shell-script -*-

# _quorvel_import_options COMMAND: a word for each option.
_quorvel_import_options() {
  local own
  case $1 in
    hledger) own='--container --watch --force' ;;
    init) own='--container --force' ;;
    open) own='--container' ;;
    check | explain) own='' ;;
    *) return ;;
  esac
  printf '%s\n' --file -f --config $own --help -h
}

_quorvel_import() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]} choices=''
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    choices='hledger check explain init open --help'
  else
    case $previous in
      --file | -f | --config) compopt -o default ;;
      --container) compopt -o dirnames ;;
      *)
        case $current:$command in
          -*) choices=$(_quorvel_import_options "$command") ;;
          *:explain) choices='spending last-month category budget net-worth cards dues' ;;
          *:open) choices='' ;;
        esac
        ;;
    esac
  fi
  mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
}

complete -F _quorvel_import quorvel-import
