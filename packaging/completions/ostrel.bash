# Completes the commands, options and monitors of ostrel(1) in bash.

# The names of the monitors in the folder that the line names, one a line.
_ostrel_monitors() {
    local -a folder=()
    local i
    for ((i = 1; i < COMP_CWORD - 1; ++i)); do
        [[ ${COMP_WORDS[i]} == --data-dir ]] && folder=(--data-dir "${COMP_WORDS[i + 1]}")
    done
    "${COMP_WORDS[0]}" list --names "${folder[@]}" 2>/dev/null
}

# Offers the monitors whose names begin with the word, quoted for the line.
_ostrel_complete_monitors() {
    local name word=${1#[\"\']}
    word=${word//\\/}
    while IFS= read -r name; do
        [[ $name == "$word"* ]] || continue
        if [[ $1 != [\"\']* ]]; then
            printf -v name %q "$name"
            name=${name//:/\\:} # Or bash would take what follows for another word.
        fi
        COMPREPLY+=("$name")
    done < <(_ostrel_monitors)
}

_ostrel() {
    local current previous command=${COMP_WORDS[1]}
    local commands='check status list add edit pause resume remove check-now export import metrics help'
    local general='--add-monitor --demo --quit --data-dir --language --version --help'
    local settings='--name --port --interval --method --timeout --keyword --keyword-absent --threshold'
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
        --format)
            mapfile -t COMPREPLY < <(compgen -W 'json csv prometheus' -- "$current")
            return ;;
        --interval)
            mapfile -t COMPREPLY < <(compgen -W '30 60 300 900 1800 3600' -- "$current")
            return ;;
        --port | --timeout | --keyword | --threshold | --name | --address)
            return ;;
    esac
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$commands $general" -- "$current")
        return
    fi
    local words=$general
    case $command in
        check)
            words='--port --method --timeout --keyword --keyword-absent --threshold --json --help' ;;
        status)
            words='--json --watch --data-dir --help' ;;
        list)
            words='--json --names --data-dir --help' ;;
        add)
            words="$settings --data-dir --help" ;;
        edit)
            words="$settings --address --keyword-present --no-keyword --no-threshold --data-dir --help" ;;
        pause | resume | remove)
            words='--data-dir --help' ;;
        check-now)
            words='--json --data-dir --help' ;;
        export)
            words='--history --format --force --data-dir --help' ;;
        import)
            words='--dry-run --replace --copy --data-dir --help' ;;
        metrics)
            words='--data-dir --help' ;;
        help)
            words=$commands ;;
    esac
    if [[ $current != -* ]]; then
        case $command in
            check | add)
                mapfile -t COMPREPLY < <(compgen -A hostname -- "$current")
                return ;;
            export | import)
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
                compopt -o filenames
                return ;;
            edit | pause | resume | remove | check-now)
                _ostrel_complete_monitors "$current"
                return ;;
        esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -F _ostrel ostrel
