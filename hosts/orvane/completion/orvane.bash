# Completion of orvane for bash, and for zsh after bashcompinit. The program itself tells the words
# that may follow, so this file names none of them; the driver isn't asked. Without such a word
# there are file names.
_orvane() {
    local current=${COMP_WORDS[COMP_CWORD]} words
    words=$("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD-1}" 2>/dev/null)
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}
complete -o default -F _orvane orvane
