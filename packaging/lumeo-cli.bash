# Completion of lumeo-cli for bash.

_lumeo_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
    local options choices=

    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "scan plan organize duplicates check verify undo runs --help --version --verbose" -- "$word")
        return
    fi
    case $before in
        --preset) choices="yearAndMonth yearOnly exactDate custom" ;;
        --mode) choices="copy move" ;;
        --duplicates) choices="skipDuplicates copyToDuplicatesFolder keepAll" ;;
        --unknown-dates) choices="unknownFolder useFilesystemDate" ;;
        --template | --since) return ;;
        --to | --archive)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$word")
            return
            ;;
    esac
    if [[ -n $choices ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
        return
    fi

    case $command in
        scan) options="--analyze-duplicates --json --quiet --help" ;;
        duplicates) options="--json --quiet --help" ;;
        check) options="--archive --read-all --json --quiet --help" ;;
        verify) options="--since --json --quiet --help" ;;
        undo) options="--yes --quiet --help" ;;
        runs) options="--json --help" ;;
        plan | organize)
            options="--to --preset --template --mode --duplicates --unknown-dates --analyze-duplicates"
            options+=" --json --quiet --help"
            [[ $command == organize ]] && options+=" --manifest --csv --report --checksums --yes"
            ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _lumeo_cli lumeo-cli
