# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# Completion for bash: the help of the program itself tells its options and their values.
_quandrel()
{
    local word=$2 option=$3 help words
    if [[ $word == = ]]; then # bash takes --option=value for three words
        word=
    elif [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    help=$(LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen "$1" --help 2>/dev/null) || return

    local start=$'\n'"  $option "
    if [[ $option == --* && $help =~ "$start"([A-Z:=]+) ]]; then
        # "Language: en, de (default …)" lists values.
        help=${help#*"$start"}
        if [[ ${BASH_REMATCH[1]} == @(FILE|DIR) ]]; then
            compopt -o default # files, as the shell itself completes them
            return
        fi
        [[ ${help%%$'\n  -'*} =~ :[[:space:]]+([a-z]+(,[[:space:]]+[a-z]+)+)[[:space:]]+\( ]]
        words=${BASH_REMATCH[1]//,/}
    elif [[ $word != -* && $help == *$'\nArguments:\n'* ]]; then
        compopt -o default
        return
    else
        words=$(sed -nE 's/^  (-., )?(--[a-z-]+).*/\2/p' <<<"$help")
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _quandrel device-plugin-check device-workbench quandrel-robot
