# Completion of tabulon for bash.

_tabulon() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  local host='--content --no-content --data --language --help'
  if ((COMP_CWORD == 1)); then
    COMPREPLY=($(compgen -W 'preview thumbnail answers export convert --content --no-content --data --language --help --version' -- "$current"))
    return
  fi
  case $previous in
    --trig) COMPREPLY=($(compgen -W 'degrees radians' -- "$current")); return ;;
    --locale) COMPREPLY=($(compgen -W 'standard european' -- "$current")); return ;;
    --format) COMPREPLY=($(compgen -W 'html html-inline' -- "$current")); return ;;
    --size | -s) COMPREPLY=($(compgen -W '128 256 512 1024' -- "$current")); return ;;
    --language | --uri) return ;;
    --content | --data) compopt -o filenames; COMPREPLY=($(compgen -d -- "$current")); return ;;
  esac
  if [[ $current == -* && $previous != --colors && $previous != -o ]]; then
    local options=
    case $command in
      preview) options='-o --output --colors' ;;
      thumbnail) options='-o --output -s --size --uri --colors' ;;
      answers) options='--trig --locale --json --total --average --variance --standard-deviation' ;;
      export) options='-o --output --format --trig --locale --colors' ;;
      convert) options='--trig --locale' ;;
    esac
    COMPREPLY=($(compgen -W "$options $host" -- "$current"))
    return
  fi
  compopt -o filenames
  COMPREPLY=($(compgen -f -- "$current"))
}
complete -F _tabulon tabulon
