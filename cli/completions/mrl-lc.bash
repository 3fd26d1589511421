# Bash completion of mrl-lc: the program itself knows what fits.

_mrl_lc() {
    local word current=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    while IFS=$'\t' read -r word _; do
        case $word in
        :projects) COMPREPLY+=($(compgen -f -X '!*.cdb' -- "$current") $(compgen -d -S / -- "$current")) ;;
        :files) COMPREPLY+=($(compgen -f -- "$current")) ;;
        *) COMPREPLY+=("$word") ;;
        esac
    done < <(mrl-lc --complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -o filenames -F _mrl_lc mrl-lc
