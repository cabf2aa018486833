#compdef korvela-entries
# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Completion of korvela-entries for zsh.

_korvela_entries_rules() {
    local -a rules
    rules=(${(f)"$(_call_program rules korvela-entries check --rules 2> /dev/null |
        awk '/^[a-z]/ { print $1 }')"})
    _values -s , rule $rules
}

_korvela_entries_commands() {
    local -a commands
    commands=(
        'check:say what a curator would object to'
        'compile:compile entries into one database file'
        'export:write datasets for other programs'
    )
    _describe command commands
}

_korvela_entries() {
    local curcontext=$curcontext state
    local -a inputs
    inputs=('(- *)'{-h,--help}'[show help]' '*:file or folder:_files')
    _arguments -C \
        '(- *)'{-h,--help}'[show help]' \
        '(- *)'{-v,--version}'[show the version]' \
        '1:command:_korvela_entries_commands' \
        '*::argument:->arguments'
    [[ $state == arguments ]] || return
    case $words[1] in
        check)
            _arguments \
                '--strict[take warnings for errors]' \
                '*--disable[do not ask this rule]:rule:_korvela_entries_rules' \
                '--rules[list the rules with their reasons]' \
                '--format[write lines or JSON]:format:(text json)' \
                $inputs
            ;;
        compile)
            _arguments \
                '--output[the database file]:file:_files' \
                '--compact[leave out indentation and line ends]' \
                '--database-version[version of the database]:version:' \
                '--release[data release]:release:' \
                '--title[title of the database]:title:' \
                '--check[refuse to compile entries with errors]' \
                $inputs
            ;;
        export)
            _arguments \
                '--format[what to write]:format:(csv jcamp jsonl)' \
                '--output[folder, or file for jsonl]:folder or file:_files' \
                '--force[replace existing files]' \
                $inputs
            ;;
    esac
}

_korvela_entries "$@"
