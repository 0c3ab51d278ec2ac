
_tovak() {
  local word=${COMP_WORDS[COMP_CWORD]} values=''
  case $word in
    -SF*) values=$_tovak_sources ;;
    -TF*) values=$_tovak_targets ;;
    -SU* | -TU*) values='E M' ;;
    -SP* | -TP*) return ;;
    -*)
      mapfile -t COMPREPLY < <(compgen -W "$_tovak_switches" -- "$word")
      # A value follows without a blank.
      [[ ${COMPREPLY[0]-} == @(-B|-Q|-H|--*) ]] || compopt -o nospace
      return
      ;;
    *) return ;; # the names of files
  esac
  mapfile -t COMPREPLY < <(compgen -P "${word:0:3}" -W "$values" -- "${word:3}")
}
complete -o default -F _tovak tovak
