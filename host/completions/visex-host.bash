# Completion of visex-host's command line for bash: https://www.gnu.org/software/bash/manual/html_node/Programmable-Completion.html

_visex_host()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local languages='english french german italian spanish japanese'
    local options='--message --current --display --answer --app --resources --record --write-record --picture
        --require-admin --json --trace --trace-file -h --help --version'
    local choices= files=-f

    # Bash takes --option=value for three words.
    if [[ $current == = ]]; then
        current=
    elif [[ $previous == = ]]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    case $previous in
        --display) choices='window terminal unattended' ;;
        --current) choices=$languages ;;
        --answer) choices="ok cancel $languages button:1 button:2" ;;
        --message) choices='1000' ;;
        --app) files=-d ;;
        --resources | --record | --write-record | --picture | --trace-file) ;;
        *)
            if [[ $current == -* ]]; then
                choices=$options
            else
                files=-d
            fi
            ;;
    esac

    if [[ -n $choices ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$current")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen $files -- "$current")
    fi
}

complete -F _visex_host visex-host
