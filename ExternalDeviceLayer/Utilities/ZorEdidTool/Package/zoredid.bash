# Completion of zoredid in bash: subcommands, options, values that the help lists, connectors of this machine and files.
# The help of the command says what there is.
# shellcheck shell=bash

_zoredid()
{
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} subcommand=() words='' help i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    [[ ${COMP_WORDS[i]} == -* ]] || { subcommand=("${COMP_WORDS[i]}"); break; }
  done
  help=$("${COMP_WORDS[0]}" "${subcommand[@]}" --help 2> /dev/null < /dev/null)

  COMPREPLY=()
  if [[ $word == -* ]]; then
    # "  -o,--output FILE  What it does"
    words=$(sed -n 's/^  \(-[^ ]*\).*/\1/p' <<< "$help" | tr ',' ' ')
  elif [[ ${#subcommand[@]} -eq 0 ]]; then
    words=$(sed -n '/^Subcommands:/,$s/^  \([a-z][^ ]*\).*/\1/p' <<< "$help")
  else
    # "  --format TEXT:{plain,extended}  What it does"
    [[ $previous != -* ]] || words=$(sed -n "s/^  [^ ]*$previous [^{]*{\([^}]*\)}.*/\1/p" <<< "$help" | tr ',' ' ')
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
