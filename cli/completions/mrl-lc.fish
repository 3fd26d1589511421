# Fish completion of mrl-lc: the program itself knows what fits.

function __mrl_lc_complete
    set -l words (commandline -opc) (commandline -ct)
    for line in (mrl-lc --complete $words[2..-1] 2>/dev/null)
        switch $line
            case :projects
                __fish_complete_suffix .cdb
            case :files
                __fish_complete_path (commandline -ct)
            case '*'
                echo $line
        end
    end
end

complete -c mrl-lc -f -a '(__mrl_lc_complete)'
