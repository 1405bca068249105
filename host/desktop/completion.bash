# Completion of veka-host for bash. The options and their words come from the program's own help, so that none is missing.

_veka_host() {
    local help option argument words current previous
    COMPREPLY=()
    current=${COMP_WORDS[COMP_CWORD]}
    previous=""
    [ "$COMP_CWORD" -gt 0 ] && previous=${COMP_WORDS[COMP_CWORD - 1]}
    # bash splits --library=DIR at the "=".
    if [ "$current" = "=" ]; then
        current=""
        option=$previous
    elif [ "$previous" = "=" ]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    else
        option=$previous
    fi
    help=$("${COMP_WORDS[0]}" --help 2>/dev/null) || return 0

    case $option in
        --*)
            # What follows the option in the usage: DIR, FILE, yes|no|ask, [json].
            argument=$(sed -nE "/^$/q; s/.*\[?$option ([^] ]+)\]?.*/\1/p" <<<"$help" | head -n 1)
            [ -n "$argument" ] || argument=$(sed -nE "s/^  $option ([A-Z]+) .*/\1/p" <<<"$help" | head -n 1)
            case $argument in
                DIR*)
                    compopt -o filenames 2>/dev/null
                    mapfile -t COMPREPLY < <(compgen -d -- "$current")
                    return 0
                    ;;
                FILE*)
                    compopt -o filenames 2>/dev/null
                    mapfile -t COMPREPLY < <(compgen -f -- "$current")
                    return 0
                    ;;
                [A-Z]*) return 0 ;;
                *\|*)
                    mapfile -t COMPREPLY < <(compgen -W "${argument//|/ }" -- "$current")
                    return 0
                    ;;
                \[*)
                    # A word that may be left out: files can follow, too.
                    words=${argument//[\[\]|]/ }
                    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
                    ;;
            esac
            ;;
    esac
    if [[ $current == -* ]]; then
        words=$(sed -nE 's/^  (-[^ ,]+)(, (-[^ ,]+))?.*/\1 \3/p' <<<"$help")
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current" | sort -u)
        return 0
    fi
    compopt -o filenames 2>/dev/null
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -d -- "$current"; compgen -f -X '!*.veka' -- "$current")
}

complete -F _veka_host veka-host
