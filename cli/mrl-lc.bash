# Bash completion of mrl-lc.

_mrl_lc() {
    local words_of_level options previous=${COMP_WORDS[COMP_CWORD-1]} current=${COMP_WORDS[COMP_CWORD]}
    local command=${COMP_WORDS[1]:-} sub=${COMP_WORDS[2]:-}
    local factors="--gamu --gamf --gama --psi0 --psi1 --psi2 --psi1s"
    COMPREPLY=()

    case $previous in
    --code)
        COMPREPLY=($(compgen -W "$(mrl-lc codes --json 2>/dev/null | sed -n 's/^ *"name": "\(.*\)",$/\1/p')" -- "$current"))
        return
        ;;
    --keep | --numbers) COMPREPLY=($(compgen -f -- "$current")); return ;;
    --situation)
        COMPREPLY=($(compgen -W "persistent accidental seismic characteristic frequent quasi-permanent" -- "$current"))
        return
        ;;
    --system) COMPREPLY=($(compgen -W "spatial plane plate" -- "$current")); return ;;
    --gravity) COMPREPLY=($(compgen -W "+X -X +Y -Y +Z -Z" -- "$current")); return ;;
    --partition) COMPREPLY=($(compgen -W "G P Q Q_1 Q_2 Q_3 Q_4 Q_5 A E" -- "$current")); return ;;
    --match) COMPREPLY=($(compgen -W "number title" -- "$current")); return ;;
    --what) COMPREPLY=($(compgen -W "actions loadcases" -- "$current")); return ;;
    --superposition) COMPREPLY=($(compgen -W "PERM COND EXCL UNSI USEX ALEX EXEX PERC" -- "$current")); return ;;
    esac

    if ((COMP_CWORD == 1)); then
        words_of_level="new info check verify export import diff merge apply action case combine envelope codes code recode why keys get put"
        words_of_level+=" del --help --version"
        COMPREPLY=($(compgen -W "$words_of_level" -- "$current"))
        return
    fi
    if ((COMP_CWORD == 2)); then
        case $command in
        action) words_of_level="list show create create-all set remove" ;;
        case) words_of_level="list show create init set remove renumber current set-current" ;;
        code) words_of_level="show check diff list new" ;;
        esac
        if [[ -n ${words_of_level:-} ]]; then
            COMPREPLY=($(compgen -W "$words_of_level" -- "$current"))
            return
        fi
    fi

    case $command in
    recode) options="--code --map --dry-run --json" ;;
    new) options="--code --from --system --gravity --default-actions" ;;
    export) options="--saf-version --output --format --what --separator --decimal --encoding" ;;
    import)
        options="--format --what --separator --decimal --encoding --match --create-actions --dry-run --skip-refused"
        options+=" --apply-plan --json"
        ;;
    diff) options="--json" ;;
    merge) options="--output --ours --theirs --json" ;;
    info | check | verify | codes) options="--json" ;;
    combine) options="--situation --count --limit --keep --numbers --json" ;;
    envelope) options="--situation --concurrent --numbers --json --csv" ;;
    keys) options="--kwh --json" ;;
    get) options="--hex --json" ;;
    put) options="--append" ;;
    code) options="--json" ;;
    action)
        case $sub in
        list | show) options="--json" ;;
        create) options="--force --title --partition --superposition $factors" ;;
        create-all) options="--force --missing" ;;
        set) options="--title --partition --superposition $factors" ;;
        esac
        ;;
    case)
        case $sub in
        list) options="--action --json" ;;
        show | current) options="--json" ;;
        create) options="--action --title" ;;
        init) options="--dead --current --title" ;;
        set) options="--action --title --dlx --dly --dlz --factor $factors" ;;
        remove | renumber) options="--force" ;;
        esac
        ;;
    esac
    if [[ $current == -* ]]; then
        COMPREPLY=($(compgen -W "${options:-} --help" -- "$current"))
    elif [[ $command == code ]]; then
        COMPREPLY=($(compgen -W "$(mrl-lc codes --json 2>/dev/null | sed -n 's/^ *"name": "\(.*\)",$/\1/p')" -- "$current"))
    elif [[ " import apply envelope " == *" $command "* ]] && ((COMP_CWORD > 2)); then
        COMPREPLY=($(compgen -f -- "$current"))
    else
        COMPREPLY=($(compgen -f -X '!*.cdb' -- "$current") $(compgen -d -S / -- "$current"))
    fi
}
complete -o filenames -F _mrl_lc mrl-lc
