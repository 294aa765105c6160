# Prints what fish offers for the last word of a command line, one a line.
#   fish offers.fish FOLDER LINE     with the completions in FOLDER
source $argv[1]/ostrel.fish
complete -C $argv[2] | string replace -r '\t.*' ''
