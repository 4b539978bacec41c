# Completion of zoredid in bash: subcommands, options, their values, connectors of this machine and files. The command
# lists what there is with --list-options.
# shellcheck shell=bash

# The value of an option, of which $1 is the line of the list, $2 what is typed of it, and $3 what the word has before
# it. The parts of a LIST are separated by a plus or a comma; none is no part of one.
_zoredid_value()
{
  local line=$1 word=$2 head=$3 placeholder before='' i
  placeholder=${line%% *}
  line=${line#"$placeholder"}
  case ${placeholder#*=} in
    OUT | FILE | FOLDER)
      compopt -o filenames 2> /dev/null
      mapfile -t COMPREPLY < <(compgen -P "$head" -f -- "$word")
      return
      ;;
    ID)
      line=$("${COMP_WORDS[0]}" check --rules 2> /dev/null | sed -n 's/^\([a-z][^ ]*\) .*/\1/p')
      ;;
    FIELD=VALUE)
      [[ $word != *=* ]] || return 0
      compopt -o nospace 2> /dev/null
      line=$("${COMP_WORDS[0]}" explain --ids 2> /dev/null | sed 's/ .*/=/')
      ;;
    'OFFSET|ID')
      line=$("${COMP_WORDS[0]}" explain --ids 2> /dev/null | sed 's/ .*//')
      ;;
    *'|all')
      line=all
      ;;
    'WxH@R[,TYPE]')
      [[ $word == *,* ]] || return 0
      before=${word%,*},
      line=$("${COMP_WORDS[0]}" timing --list-options 2> /dev/null < /dev/null | sed -n 's/^--type=[^ ]* //p')
      ;;
    SPEC | I=SPEC)
      [[ $placeholder != *I=SPEC || $word == *=* || -n $index ]] || return 0
      # the formats, which --audio-set has as well
      line=$("${COMP_WORDS[0]}" edit --list-options 2> /dev/null < /dev/null | sed -n 's/^--audio-add=[^ ]* //p')
      before=${word%"${word##*[+,=]}"}
      i=${word//[^,]/}
      case ${#i} in
        1) line='2ch 3ch 4ch 5ch 6ch 7ch 8ch' ;;
        2) line='32 44.1 48 88.2 96 176.4 192' ;;
        3) line='16 20 24' ;;
      esac
      ;;
    LIST)
      before=${word%"${word##*[+,]}"}
      [[ -z $before ]] || line=${line% none}
      for i in ${before//[+,]/ }; do # each but once
        line=" $line "
        line=${line/ $i / }
      done
      ;;
  esac
  mapfile -t COMPREPLY < <(compgen -P "$head$before" -W "$line" -- "${word#"$before"}")
}

# The names that the field after --set takes, in the image that is on the line; without one no and yes of a flag. False
# where no value is completed. Names have blanks and colons, at which COMP_WORDS may be cut, so the line is read.
_zoredid_field_value()
{
  local line=${COMP_LINE:0:COMP_POINT} word=${COMP_WORDS[COMP_CWORD]} field typed head names='' name i
  local form='^(--set[= ]+(["'\'']?)([^= ]+)=)(.*)$' quote open=''
  line=--set${line##*--set}
  [[ $line =~ $form ]] || return 1
  head=${BASH_REMATCH[1]} quote=${BASH_REMATCH[2]} field=${BASH_REMATCH[3]} typed=${BASH_REMATCH[4]}
  [[ -n $quote || $typed != [\"\']* ]] || open=${typed:0:1}
  [[ -z $quote ]] || open=$quote
  if [[ -n $open ]]; then
    [[ ${typed#"$open"} != *"$open"* ]] || return 1 # a word after the value
  else
    [[ ! $typed =~ (^|[^\\])\  ]] || return 1
  fi
  [[ $field == [a-z]* ]] || return 0 # of a place the byte alone would be known
  for i in "${COMP_WORDS[@]:1}"; do
    [[ ! -f $i || -n $names ]] || names=$("${COMP_WORDS[0]}" explain --values --at "$field" "$i" 2> /dev/null) || true
  done
  if [[ -z $names ]] && grep -q "^${field%%[*}  *flag " <<< "$("${COMP_WORDS[0]}" explain --ids 2> /dev/null)"; then
    names=$'no\nyes'
  fi
  [[ $word != [=:] ]] || word=''
  while [[ -n $names ]] && read -r name; do
    # Within quotes a name is as it is.
    if [[ $typed == [\"\']* ]]; then
      name=${typed:0:1}$name
    elif [[ -z $quote ]]; then
      name=$(printf %q "$name")
    fi
    [[ $name != "$typed"* ]] || {
      name=$head$name
      name=${name#"${line%"$word"}"}
      COMPREPLY+=("${name#[\"\']}")
    }
  done <<< "$names"
}

_zoredid()
{
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} subcommand='' words='' list all line i
  local head='' index='' # of --audio-set 0=SPEC, when it is a word of its own
  list=$("${COMP_WORDS[0]}" --list-options 2> /dev/null < /dev/null)
  all=$(grep '^[a-z]' <<< "$list")
  # The first word that is one; options with values may come before it.
  for ((i = 1; i < COMP_CWORD; ++i)); do
    if grep -qxF -e "${COMP_WORDS[i]}" <<< "$all"; then
      subcommand=${COMP_WORDS[i]}
      [[ $subcommand == help ]] ||
        list=$("${COMP_WORDS[0]}" "$subcommand" --list-options 2> /dev/null < /dev/null)
      break
    fi
  done

  COMPREPLY=()
  [[ $subcommand != edit ]] || ! _zoredid_field_value || return 0

  # --format=plain is three words, unless COMP_WORDBREAKS has no equals sign.
  if [[ $word == --*=* ]]; then
    previous=${word%%=*} head=${word%%=*}= word=${word#*=}
  elif [[ $word == = ]]; then
    word=''
    [[ $COMP_CWORD -lt 3 || ${COMP_WORDS[COMP_CWORD - 2]} != --audio-set ]] || previous=--audio-set index=yes
  elif [[ $previous == = && $COMP_CWORD -gt 2 ]]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
    [[ $COMP_CWORD -lt 4 || ${COMP_WORDS[COMP_CWORD - 3]} != --audio-set ]] || previous=--audio-set index=yes
  fi

  if [[ $word == -* ]]; then
    words=$(sed -n 's/^\(-[^ =]*\).*/\1/p' <<< "$list")
  elif [[ $previous == -* ]]; then
    # The option is a text of the user and taken as it is. One that the help does not name has a folder.
    while read -r line; do
      [[ $line != "$previous="* ]] || { _zoredid_value "$line" "$word" "$head"; return; }
    done <<< "$list"$'\n'--sysfs=FOLDER
  fi
  if [[ $word != -* ]]; then
    if [[ -z $subcommand || $subcommand == help ]]; then
      words=$all
    fi
    if [[ $subcommand != help ]] && { [[ -n $subcommand ]] || grep -qx FILE <<< "$list"; }; then
      # A connector is card0-HDMI-A-1, or HDMI-A-1 for short.
      words+=$'\n'$(for i in /sys/class/drm/card*-*; do [[ ! -e $i ]] || echo "${i##*/} ${i#*/card*-}"; done)
      compopt -o filenames 2> /dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
  fi
  mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -F _zoredid zoredid
