# bash completion for vexa-cli

_vexa_cli_command() {
    local i
    for ((i = 1; i < COMP_CWORD; i++)); do
        case ${COMP_WORDS[i]} in
        -*) ;;
        *)
            echo "${COMP_WORDS[i]}"
            return
            ;;
        esac
    done
}

_vexa_cli_options() {
    case $1 in
    "") echo "--help --version" ;;
    report) echo "--help --sections --yes" ;;
    new | evaluate | convert) echo "--help --yes" ;;
    *) echo "--help" ;;
    esac
}

_vexa_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} command
    command=$(_vexa_cli_command)
    COMPREPLY=()
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_vexa_cli_options "$command")" -- "$current")
    elif [[ -z $command ]]; then
        mapfile -t COMPREPLY < <(compgen -W "new evaluate report convert dump check table" -- "$current")
    elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --sections ]]; then
        mapfile -t COMPREPLY < <(compgen -W "1 2 3 4 5 6 7 8 9 10" -- "$current")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(
            compgen -d -- "$current"
            compgen -f -X '!*.[qQ][eE][lL]' -- "$current"
        )
    fi
}

complete -F _vexa_cli vexa-cli
