# Completion of orvane for bash. The program itself tells the words that may follow, and what they
# are, so this file names none of them.
_orvane() {
    local lines
    mapfile -t lines < <("${COMP_WORDS[0]}" complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
    COMPREPLY=()
    case ${lines[0]-} in
    *:files*) compopt -o default ;;
    *:folders*) compopt -o dirnames ;;
    *) COMPREPLY=("${lines[@]%%$'\t'*}") ;;
    esac
}
complete -F _orvane orvane
