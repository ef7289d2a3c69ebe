# fish completion for headerdtc

set -l commands generate new show automate edit

complete -c headerdtc -f
complete -c headerdtc -l config -r -F -d 'the site configuration'
complete -c headerdtc -s h -l help -d 'help'
complete -c headerdtc -n "not __fish_seen_subcommand_from $commands" -l version -d 'version'
complete -c headerdtc -n "not __fish_seen_subcommand_from $commands" -a generate -d 'write the server script of pages'
complete -c headerdtc -n "not __fish_seen_subcommand_from $commands" -a new -d 'make a page with a new control'
complete -c headerdtc -n "not __fish_seen_subcommand_from $commands" -a show -d 'show the stored properties of a page'
complete -c headerdtc -n "not __fish_seen_subcommand_from $commands" -a automate -d 'drive the editor by name'
complete -c headerdtc -n "not __fish_seen_subcommand_from $commands" -a edit -d 'open the page editor'

complete -c headerdtc -n "__fish_seen_subcommand_from $commands" -F
complete -c headerdtc -n '__fish_seen_subcommand_from generate' -l print -d 'write the text to standard output'
complete -c headerdtc -n '__fish_seen_subcommand_from generate' -l check -d 'list the pages that are out of date'
complete -c headerdtc -n '__fish_seen_subcommand_from generate' -l force -d 'save also where something would be lost'
complete -c headerdtc -n '__fish_seen_subcommand_from generate' -s q -l quiet -d 'no progress and no summary'
complete -c headerdtc -n '__fish_seen_subcommand_from generate' -s j -l jobs -x -d 'pages done at a time'
complete -c headerdtc -n '__fish_seen_subcommand_from new' -l into -d 'add the control to an existing page'
complete -c headerdtc -n '__fish_seen_subcommand_from new' -l line -x -d 'before this line'
complete -c headerdtc -n '__fish_seen_subcommand_from show' -l json -d 'as JSON'
complete -c headerdtc -n '__fish_seen_subcommand_from automate' -l control -x -d 'ID of the control'
