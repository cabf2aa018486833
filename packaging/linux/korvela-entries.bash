# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Completion of korvela-entries for bash.

_korvela_entries() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words=
    COMPREPLY=()
    if (( COMP_CWORD == 1 )); then
        mapfile -t COMPREPLY < <(compgen -W 'check compile export --help --version' -- "$word")
        return
    fi
    # "--format=json" comes in three words.
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $before in
        --format)
            words='text json'
            [[ ${COMP_WORDS[1]} == export ]] && words='csv jcamp jsonl'
            ;;
        --disable)
            words=$("${COMP_WORDS[0]}" check --rules 2> /dev/null | awk '/^[a-z]/ { print $1 }')
            ;;
        --database-version | --release | --title) return ;;
        *)
            [[ $word == -* ]] || return
            case ${COMP_WORDS[1]} in
                check) words='--strict --disable --rules --format --help' ;;
                compile) words='--output --compact --database-version --release --title --check --help' ;;
                export) words='--format --output --force --help' ;;
            esac
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -o default -F _korvela_entries korvela-entries
