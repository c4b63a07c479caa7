# Completion of orvane for fish. The program itself tells the words that may follow, and what they
# are, so this file names none of them.
function __orvane_words
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    set -l lines ($words[1] complete -- $words[2..] "$current" 2>/dev/null)
    switch "$lines[1]"
        case '*:files*'
            __fish_complete_path "$current"
        case '*:folders*'
            __fish_complete_directories "$current"
        case '*'
            printf '%s\n' $lines
    end
end
complete -c orvane -f -a '(__orvane_words)'
