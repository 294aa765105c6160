# Completes the commands and options of ostrel(1) in bash.
_ostrel() {
    local current previous command=${COMP_WORDS[1]}
    current=${COMP_WORDS[COMP_CWORD]}
    previous=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    case $previous in
        --data-dir)
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            compopt -o filenames
            return ;;
        --language)
            mapfile -t COMPREPLY < <(compgen -W 'en pseudo' -- "$current")
            return ;;
        --method)
            mapfile -t COMPREPLY < <(compgen -W 'GET HEAD POST' -- "$current")
            return ;;
        --port | --timeout | --keyword | --threshold)
            return ;;
    esac
    local words='--add-monitor --demo --quit --data-dir --language --version --help'
    case $command in
        check)
            words='--port --method --timeout --keyword --keyword-absent --threshold --json'
            [[ $current == -* ]] || mapfile -t COMPREPLY < <(compgen -A hostname -- "$current") ;;
        status)
            words='--json --data-dir' ;;
    esac
    if ((COMP_CWORD == 1)); then
        words='check status --add-monitor --demo --quit --data-dir --language --version --help'
    fi
    if [[ $current == -* || $command != check || $COMP_CWORD -eq 1 ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    fi
}
complete -F _ostrel ostrel
