# Prints what zsh offers for the last word of a command line, one a line.
#   zsh offers.zsh FOLDER LINE     with the completions in FOLDER
# Only a shell on a terminal completes, so there is a second one, which types the line.

type_line() {
    typed=$2
    PROMPT=
    fpath=($1 $fpath)
    autoload -Uz compinit && compinit -u -D
    # Reports what is added to the offers; with some options nothing is.
    compadd() {
        local -a offers
        [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]] || builtin compadd -A offers "$@"
        ((${#offers})) && print -rl -- '' "<offer>"$^offers
        builtin compadd "$@"
    }
    zle-line-init() {
        BUFFER=$typed
        CURSOR=$#BUFFER
        zle complete-word
        print -r -- $'\n<end>'
        exit
    }
    zle -N zle-line-init
}

if [[ $1 == --type ]]; then
    type_line "${@:2}"
    return
fi
zmodload zsh/zpty
zpty terminal zsh -f -i
zpty -w terminal "source ${(q)ZSH_SCRIPT:-$0} --type ${(q)1} ${(q)2}"
while zpty -r terminal line && [[ $line != '<end>'* ]]; do
    [[ $line == '<offer>'* ]] && print -r -- ${${line#<offer>}%$'\r\n'}
done
zpty -d terminal
