# Completion of visex-host's command line for fish: https://fishshell.com/docs/current/completions.html

set -l languages english french german italian spanish japanese

complete -c visex-host -x -a '(__fish_complete_directories)'
complete -c visex-host -l message -x -a 1000 -d 'Message in the record'
complete -c visex-host -l current -x -a "$languages" -d 'Current language'
complete -c visex-host -l display -x -a 'window terminal unattended' -d 'Where the dialog is shown'
complete -c visex-host -l answer -x -a "ok cancel $languages button:1 button:2" -d 'An answer for the unattended display'
complete -c visex-host -l app -x -a '(__fish_complete_directories)' -d 'Application bundle'
complete -c visex-host -l resources -r -F -d 'Resource file'
complete -c visex-host -l record -r -F -d 'Record to start from'
complete -c visex-host -l write-record -r -F -d 'Where to store the record'
complete -c visex-host -l picture -r -F -d 'Save the dialog or alert as a picture'
complete -c visex-host -l require-admin -d 'Have the external ask for the administrator\'s right'
complete -c visex-host -l json -d 'Print the answer as one JSON object'
complete -c visex-host -l trace -d 'Write the toolbox calls to standard error'
complete -c visex-host -l trace-file -r -F -d 'Write the toolbox calls into a file'
complete -c visex-host -s h -l help -d 'Print the options'
complete -c visex-host -l version -d 'Say which version this is'
