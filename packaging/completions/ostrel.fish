# Completes the commands, options and monitors of ostrel(1) in fish.

# The names of the monitors in the folder that the line names.
function __ostrel_monitors
    set -l words (commandline -opc)
    set -l folder
    set -l place (contains -i -- --data-dir $words)
    and set folder --data-dir $words[(math $place + 1)]
    ostrel list --names $folder 2>/dev/null
end

complete -c ostrel -f
set -l commands check status list add edit pause resume remove check-now export import metrics help
set -l none "not __fish_seen_subcommand_from $commands"
set -l settings '__fish_seen_subcommand_from check add edit'
set -l stored '__fish_seen_subcommand_from add edit'
set -l edit '__fish_seen_subcommand_from edit'
set -l monitors '__fish_seen_subcommand_from edit pause resume remove check-now'

complete -c ostrel -n "$none" -a check -d 'Make one check'
complete -c ostrel -n "$none" -a status -d 'Print every monitor with its status'
complete -c ostrel -n "$none" -a list -d 'Print every monitor with its settings'
complete -c ostrel -n "$none" -a add -d 'Add a monitor'
complete -c ostrel -n "$none" -a edit -d 'Change settings of a monitor'
complete -c ostrel -n "$none" -a pause -d 'Stop checking monitors'
complete -c ostrel -n "$none" -a resume -d 'Check paused monitors again'
complete -c ostrel -n "$none" -a remove -d 'Remove monitors and their histories'
complete -c ostrel -n "$none" -a check-now -d 'Check monitors at once'
complete -c ostrel -n "$none" -a export -d 'Write the monitors, or their history, to a file'
complete -c ostrel -n "$none" -a import -d 'Add the monitors of a file'
complete -c ostrel -n "$none" -a metrics -d 'Print the state of every monitor for Prometheus'
complete -c ostrel -n "$none" -a help -d 'Explain a command'
complete -c ostrel -n "$none" -l add-monitor -d 'Show the form for a new monitor'
complete -c ostrel -n "$none" -l demo -d 'Watch servers of its own, to try it out'
complete -c ostrel -n "$none" -l quit -d 'End the Ostrel that watches'
complete -c ostrel -n "$none" -l language -x -a 'en pseudo' -d 'Show the window in a language'
complete -c ostrel -n "$none" -l version -d 'Print the version'
complete -c ostrel -s h -l help -d 'Explain the command'
complete -c ostrel -n 'not __fish_seen_subcommand_from check' -l data-dir -x -a '(__fish_complete_directories)' -d 'The folder of monitors and history'
complete -c ostrel -n '__fish_seen_subcommand_from help' -a "$commands"
complete -c ostrel -n '__fish_seen_subcommand_from check add' -a '(__fish_print_hostnames)'
complete -c ostrel -n "$monitors" -a '(__ostrel_monitors)' -d 'Monitor'
complete -c ostrel -n "$settings" -l port -x -d 'Open a TCP connection to a port'
complete -c ostrel -n "$settings" -l method -x -a 'GET HEAD POST' -d 'How to fetch'
complete -c ostrel -n "$settings" -l timeout -x -d 'Give up after so many seconds'
complete -c ostrel -n "$settings" -l keyword -x -d 'Down unless the page holds a text'
complete -c ostrel -n "$settings" -l keyword-absent -d 'Down if the page holds the keyword'
complete -c ostrel -n "$settings" -l threshold -x -d 'Say so when the answer takes more milliseconds'
complete -c ostrel -n "$stored" -l name -x -d 'The name'
complete -c ostrel -n "$stored" -l interval -x -a '30 60 300 900 1800 3600' -d 'Seconds between two checks'
complete -c ostrel -n "$edit" -l address -x -a '(__fish_print_hostnames)' -d 'What to watch'
complete -c ostrel -n "$edit" -l keyword-present -d 'Down unless the page holds the keyword'
complete -c ostrel -n "$edit" -l no-keyword -d 'Look for no keyword'
complete -c ostrel -n "$edit" -l no-threshold -d 'Notify of no slow answers'
complete -c ostrel -n '__fish_seen_subcommand_from status' -l watch -d 'Print it again at every change'
complete -c ostrel -n '__fish_seen_subcommand_from list' -l names -d 'Print the names alone'
complete -c ostrel -n '__fish_seen_subcommand_from check status list check-now' -l json -d 'Print JSON'
complete -c ostrel -n '__fish_seen_subcommand_from export import' -F
complete -c ostrel -n '__fish_seen_subcommand_from export' -l history -d 'Write the history, too'
complete -c ostrel -n '__fish_seen_subcommand_from export' -l format -x -a 'json csv prometheus' -d 'What to write'
complete -c ostrel -n '__fish_seen_subcommand_from export' -l force -d 'Replace what exists'
complete -c ostrel -n '__fish_seen_subcommand_from import' -l dry-run -d 'Only print what would be done'
complete -c ostrel -n '__fish_seen_subcommand_from import' -l replace -d 'Give monitors the settings of the file'
complete -c ostrel -n '__fish_seen_subcommand_from import' -l copy -d 'Add beside those with other settings'
