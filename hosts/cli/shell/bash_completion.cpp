#include "hosts/cli/shell/completion.h"

#include <string_view>

namespace korvex::cli {

namespace {

/// Divides the line anew, because bash takes "--out=a:b" for several words, and walks it up to the cursor.
constexpr std::string_view Engine = R"bash(
# The word without the quotes of the shell.
_korvex_plain()
{
    case $1 in
        \"*) set -- "${1#\"}"; set -- "${1%\"}"; printf '%s' "${1//\\\"/\"}" ;;
        \'*) set -- "${1#\'}"; printf '%s' "${1%\'}" ;;
        *) printf '%s' "${1//\\/}" ;;
    esac
}

# The same of a file, which may stand in the home folder.
_korvex_path()
{
    local path
    path=$(_korvex_plain "$1")
    [[ $path != '~/'* ]] || path=$HOME/${path:2}
    printf '%s' "$path"
}

# The storage names of a repository ($1) that begin so ($2), quoted as far as the word is not.
_korvex_storages()
{
    local name begin
    begin=$(_korvex_plain "$2")
    [[ -n $1 ]] || return
    "$(_korvex_path "${COMP_WORDS[0]}")" completion storages -- "$1" 2>/dev/null </dev/null |
        while IFS= read -r name; do
            [[ $name == "$begin"* ]] || continue
            if [[ $2 == [\"\']* ]]; then printf '%s\n' "$name"; else printf '%q\n' "$name"; fi
        done
}

# Whether the option ($1) of the command takes a value; kind: of what kind.
_korvex_takes()
{
    local entry
    kind=
    for entry in "${takes[@]}"; do
        [[ $entry != "$1="* ]] || { kind=${entry#*=}; return 0; }
    done
    return 1
}

# The words to the left of the cursor, as they are typed; head: what readline takes for words before the last.
_korvex_divide()
{
    local line=${COMP_LINE:0:COMP_POINT} piece gap i
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        piece=${COMP_WORDS[i]}
        gap=${line%%[![:blank:]]*}
        line=${line#"$gap"}
        ((i < COMP_CWORD)) || [[ -z $COMP_LINE ]] || piece=$line
        line=${line#"$piece"}
        head=
        if ((i > 0)) && [[ -z $gap && -n $COMP_LINE ]]; then
            head=${words[-1]}
            words[-1]+=$piece
        else
            words+=("$piece")
        fi
        [[ $piece != [=:] ]] || head=${words[-1]}
    done
}

_korvex()
{
    local command=korvex commands options again takes places more
    local words=() head= word piece kind option= used=' ' place=0 plain= repository=$KORVEX_REPOSITORY
    _korvex_divide
    word=${words[-1]}
    unset 'words[-1]'
    _korvex_command "$command"
    for piece in "${words[@]:1}"; do
        if [[ -n $option ]]; then
            [[ $option != --repository ]] || repository=$(_korvex_path "$piece")
            option=
        elif [[ -z $plain && $piece == -- ]]; then
            plain=yes
        elif [[ -z $plain && $piece == -?* ]]; then
            used+="${piece%%=*} "
            [[ $piece != --repository=* ]] || repository=$(_korvex_path "${piece#*=}")
            [[ $piece == *=* ]] || ! _korvex_takes "$piece" || option=$piece
        elif [[ " $commands " == *" $piece "* ]]; then
            command+=" $piece"
            _korvex_command "$command"
        else
            [[ $place != 0 || ${places[0]} != repository ]] || repository=$(_korvex_path "$piece")
            ((place += 1))
        fi
    done
    # Where the option names the repository, its place is not there.
    [[ $used != *' --repository '* || ${places[0]} != repository ]] || places=("${places[@]:1}")
    [[ -z $more || ${#places[@]} == 0 || $place -lt ${#places[@]} ]] || place=$((${#places[@]} - 1))

    local before=
    if [[ -z $option && -z $plain && $word == --*=* ]]; then
        option=${word%%=*}
        before=$option=
    fi
    kind=
    if [[ -n $option ]]; then
        _korvex_takes "$option"
    elif [[ -z $plain && ( $word == -* || ( -z $word && -z $commands && -z ${places[place]} ) ) ]]; then
        for piece in $options; do
            [[ $used == *" $piece "* && " $again " != *" $piece "* ]] || kind+="$piece "
        done
    else
        kind=${commands:-${places[place]}}
    fi

    word=${word#"$before"}
    head=${head#"$before"}
    case $kind in
        '') COMPREPLY=() ;;
        files | repository)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$(_korvex_plain "$word")") ;;
        folders)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$(_korvex_plain "$word")") ;;
        storages) mapfile -t COMPREPLY < <(_korvex_storages "$repository" "$word") ;;
        *) mapfile -t COMPREPLY < <(compgen -W "$kind" -- "$(_korvex_plain "$word")") ;;
    esac
    COMPREPLY=("${COMPREPLY[@]#"$head"}")
}

complete -F _korvex korvex
)bash";

std::string KindText(const OptionDescription& option) {
    switch (option.kind) {
        case ValueKind::Choice:
            return CLI::detail::join(option.choices, " ");
        case ValueKind::File:
            return "files";
        case ValueKind::Folder:
            return "folders";
        case ValueKind::Storage:
            return "storages";
        case ValueKind::None:
        case ValueKind::Text:
            break;
    }
    return {};
}

/// What _korvex_command says of one command.
std::string CommandText(const CommandDescription& command) {
    std::string commands;
    std::string options;
    std::string again;
    std::string takes;
    std::string places;
    bool hasMore = false;
    for (const CommandDescription& nested : command.commands)
        commands += (commands.empty() ? "" : " ") + nested.Name();
    for (const OptionDescription& option : command.options) {
        const std::string kind = KindText(option);
        const bool isRepository = option.IsNamed("--repository");
        if (option.isPlaced) {
            places += (places.empty() ? "'" : " '") + (isRepository ? "repository" : kind) + "'";
            hasMore = option.isRepeated;
        }
        for (const std::string& name : option.names)
            if (option.kind != ValueKind::None) takes += " " + name + "='" + kind + "'";
        if (option.names.empty()) continue;
        options += (options.empty() ? "" : " ") + option.names.back();
        if (option.isRepeated) again += (again.empty() ? "" : " ") + option.names.back();
    }
    return "        '" + command.path + "')\n            commands='" + commands + "'\n            options='" +
           options + "'\n            again='" + again + "' more=" + (hasMore ? "yes" : "") +
           "\n            places=(" + places + ")\n            takes=(" + takes + " ) ;;\n";
}

std::string CommandTexts(const CommandDescription& command) {
    std::string text = CommandText(command);
    for (const CommandDescription& nested : command.commands)
        text += CommandTexts(nested);
    return text;
}

}  // namespace

std::string BashCompletion(const CommandDescription& root) {
    return "# bash completion of korvex, written by \"korvex completion bash\"\n\n"
           "# What may stand behind a command: commands, options, options that may stand again, what the words "
           "by\n# place are (and whether the last one may stand again), and options with values.\n"
           "_korvex_command()\n{\n    case $1 in\n" +
           CommandTexts(root) + "    esac\n}\n" + std::string(Engine);
}

}  // namespace korvex::cli
