# Completes command lines of zelconvert in bash. Made by "zelconvert generate bash".
_zelconvert() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
    local key word kind= values= words= options= count=0 most=0
    if [[ $cur == = ]]; then cur=; fi
    if [[ $prev == = ]]; then prev=${COMP_WORDS[COMP_CWORD - 2]}; fi
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        words='convert batch detect types info points import-cr5 import-sdr merge diff plot help'
        if [[ $cur == -* ]]; then words='-h --help --version'; fi
        compopt +o default
        COMPREPLY=($(compgen -W "$words" -- "$cur"))
        return
    fi
    case ${COMP_WORDS[1]} in
        'convert') options='--from --to --job --force --verify --keep -h --help --json --quiet' ;;
        'batch') options='--to --out-dir --from --files-from --jobs --keep-going --skip-existing --report --force -h --help --json --quiet' ;;
        'detect') options='-h --help --json --quiet' ;;
        'types') options='-h --help --json --quiet' ;;
        'info') options='--from --units --job -h --help --json --quiet' ;;
        'points') options='--format --crs -o --output --force --from --units --job -h --help --json --quiet' ;;
        'import-cr5') options='--force --units --to -h --help --json --quiet' ;;
        'import-sdr') options='--force --from -h --help --json --quiet' ;;
        'merge') options='--force --from --to -h --help --json --quiet' ;;
        'diff') options='--tolerance --from --to --units -h --help --json --quiet' ;;
        'plot') options='--force --from --job --units -h --help --json --quiet' ;;
        'help') options='-h --help --json --quiet' ;;
    esac
    for key in "${COMP_WORDS[1]}" "${COMP_WORDS[1]} $prev"; do
        case $key in
        'convert --from') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'convert --to') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'batch --to') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'batch --out-dir') kind=folder ;;
        'batch --from') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'batch --jobs') kind=free ;;
        'types') words='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' most=2 ;;
        'info --from') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'info --units') values='m ft usft' ;;
        'points --format') values='csv geojson' ;;
        'points --crs') values='native wgs84' ;;
        'points --from') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'points --units') values='m ft usft' ;;
        'import-cr5 --units') values='m ft usft' ;;
        'import-cr5 --to') values='job pwj oldjob' ;;
        'import-sdr --from') values='sdr33 sdr2' ;;
        'merge --from') values='job pwj' ;;
        'merge --to') values='job pwj' ;;
        'diff --tolerance') kind=free ;;
        'diff --from') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'diff --to') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'diff --units') values='m ft usft' ;;
        'plot --from') values='job oldjob pwj cr5 seqcr5 dc dc77 dc1000 dc1070 raw rw5 pwr job+raw pwj+pwr cr5+rw5 sdr33 sdr2 ilj jxl' ;;
        'plot --units') values='m ft usft' ;;
        'help') words='convert batch detect types info points import-cr5 import-sdr merge diff plot help' most=1 ;;
        esac
    done
    for word in "${COMP_WORDS[@]:2:COMP_CWORD - 2}"; do
        if [[ $word != -* ]]; then ((++count)); fi
    done
    if [[ $words || $kind ]]; then compopt +o default; fi
    if [[ $kind == folder ]]; then compopt -o dirnames; fi
    if ((count >= most)); then words=; fi
    if [[ $cur == -* ]]; then words=$options; fi
    if [[ $values ]]; then words=$values; fi
    COMPREPLY=($(compgen -W "$words" -- "$cur"))
}
complete -o default -F _zelconvert zelconvert
