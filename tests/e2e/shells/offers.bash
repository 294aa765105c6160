# Prints what bash offers for the last word of a command line, one a line.
#   bash offers.bash FOLDER LINE     with the completions in FOLDER
# shellcheck disable=SC1091,SC2034 # The completions aren't beside this file, and read the variables.
source "$1/ostrel.bash"
read -ra COMP_WORDS <<<"$2"
[[ $2 != *' ' ]] || COMP_WORDS+=('')
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_ostrel 2>/dev/null # It sets options that only a line being typed has.
((${#COMPREPLY[@]} == 0)) || printf '%s\n' "${COMPREPLY[@]}"
