# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Completion of korvela-entries for fish.

function __korvela_entries_rules
    korvela-entries check --rules 2> /dev/null | string match --regex '^[a-z][^ ]*'
end

set -l commands check compile export
set -l without "not __fish_seen_subcommand_from $commands"
complete -c korvela-entries -n $without -f
complete -c korvela-entries -n $without -a check -d 'Say what a curator would object to'
complete -c korvela-entries -n $without -a compile -d 'Compile entries into one database file'
complete -c korvela-entries -n $without -a export -d 'Write datasets for other programs'
complete -c korvela-entries -n $without -s v -l version -d 'Show the version'
complete -c korvela-entries -s h -l help -d 'Show help'

set -l command '__fish_seen_subcommand_from check'
complete -c korvela-entries -n $command -l strict -d 'Take warnings for errors'
complete -c korvela-entries -n $command -l disable -x -a '(__korvela_entries_rules)' -d 'Do not ask this rule'
complete -c korvela-entries -n $command -l rules -d 'List the rules with their reasons'
complete -c korvela-entries -n $command -l format -x -a 'text json' -d 'Write lines or JSON'

set -l command '__fish_seen_subcommand_from compile'
complete -c korvela-entries -n $command -l output -r -F -d 'The database file'
complete -c korvela-entries -n $command -l compact -d 'Leave out indentation and line ends'
complete -c korvela-entries -n $command -l database-version -x -d 'Version of the database'
complete -c korvela-entries -n $command -l release -x -d 'Data release'
complete -c korvela-entries -n $command -l title -x -d 'Title of the database'
complete -c korvela-entries -n $command -l check -d 'Refuse to compile entries with errors'

set -l command '__fish_seen_subcommand_from export'
complete -c korvela-entries -n $command -l format -x -a 'csv jcamp jsonl' -d 'What to write'
complete -c korvela-entries -n $command -l output -r -F -d 'Folder, or file for jsonl'
complete -c korvela-entries -n $command -l force -d 'Replace existing files'
