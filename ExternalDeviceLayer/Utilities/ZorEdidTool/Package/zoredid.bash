# Completion of zoredid in bash: subcommands, options, values that the help lists, connectors of this machine and files.
# The help of the command says what there is.
# shellcheck shell=bash

# The subcommands that a help lists: "  report  What it does".
_zoredid_subcommands()
{
  sed -n '/^Subcommands:/,$s/^  \([a-z][^ ]*\).*/\1/p' <<< "$1"
}

# The values that a help lists for an option: "  -f,--format TEXT:{plain,extended}  What it does". The option is a text
# of the user and taken as it is.
_zoredid_values()
{
  local names rest
  while read -r names rest; do
    if [[ ,$names, == *",$2,"* && $rest == *"{"*"}"* ]]; then
      rest=${rest#*"{"}
      tr ',' ' ' <<< "${rest%%"}"*}"
    fi
  done <<< "$1"
}

_zoredid()
{
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} subcommand='' words='' help all i
  help=$("${COMP_WORDS[0]}" --help 2> /dev/null < /dev/null)
  all=$(_zoredid_subcommands "$help")
  # The first word that is one; options with values may come before it.
  for ((i = 1; i < COMP_CWORD; ++i)); do
    if grep -qxF -e "${COMP_WORDS[i]}" <<< "$all"; then
      subcommand=${COMP_WORDS[i]}
      help=$("${COMP_WORDS[0]}" "$subcommand" --help 2> /dev/null < /dev/null)
      break
    fi
  done

  COMPREPLY=()
  if [[ $word == -* ]]; then
    # "  -o,--output FILE  What it does"
    words=$(sed -n 's/^  \(-[^ ]*\).*/\1/p' <<< "$help" | tr ',' ' ')
  elif [[ -z $subcommand && $previous != --sysfs && $previous != --monitor ]]; then
    words=$all
  else
    [[ $previous != -* ]] || words=$(_zoredid_values "$help" "$previous")
    if [[ -z $words ]]; then
      # A connector is card0-HDMI-A-1, or HDMI-A-1 for short.
      words=$(for i in /sys/class/drm/card*-*; do [[ ! -e $i ]] || echo "${i##*/} ${i#*/card*-}"; done)
      compopt -o filenames 2> /dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
  fi
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _zoredid zoredid
