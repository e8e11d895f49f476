# Completion of algodesk for bash: commands, their options, and what the program itself knows of values.

_algodesk_commands="import check rows strategies accounts securities template atdl batches instances undo approve refuse start
    stop withdraw settle audit backup restore vacuum diff halt resume ledger status report gateway simulator demo"

# _algodesk_options COMMAND: those that it takes.
_algodesk_options() {
    local everywhere="--language --help" ledger="--home --ledger --wait"
    case $1 in
    import) echo "$everywhere $ledger --strategy --account --data --answer --switch-account --confirm --create --yes --duplicates --against --accept
        --amount --rejects --faults --mapping" ;;
    check) echo "$everywhere --home --strategy --account --data --encoding --mapping" ;;
    rows) echo "$everywhere --home --encoding" ;;
    strategies | accounts | securities) echo "$everywhere --home --data" ;;
    template) echo "$everywhere --home --data --strategy --all" ;;
    atdl) echo "$everywhere --home" ;;
    instances | start | stop | withdraw) echo "$everywhere $ledger --batch" ;;
    approve | diff) echo "$everywhere $ledger --data" ;;
    refuse) echo "$everywhere $ledger --reason" ;;
    settle) echo "$everywhere $ledger --as --reason" ;;
    audit) echo "$everywhere $ledger --verify --from" ;;
    halt | resume) echo "$everywhere $ledger --account --reason" ;;
    report) echo "$everywhere $ledger --day --out" ;;
    batches | undo | status | backup | restore | vacuum) echo "$everywhere $ledger" ;;
    ledger) echo "$everywhere --data --wait" ;;
    gateway) echo "--config --files --profile --ledger --data --home --dry-run --forget --reset-sequence --language" ;;
    simulator) echo "--config --pace --faults --data --language" ;;
    demo) echo "$everywhere --home --pace --headless" ;;
    *) echo "$everywhere --version --home --data --ledger" ;;
    esac
}

# _algodesk_values COMMAND KEY: those of a list that the program prints.
_algodesk_values() {
    "${COMP_WORDS[0]}" "$1" 2>/dev/null | sed -n "s/^ *\"$2\": \"\([^\"]*\)\".*/\1/p"
}

_algodesk() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]} among=
    case $before in
    --strategy) among=$(_algodesk_values strategies name) ;;
    --account | --switch-account) among=$(_algodesk_values accounts tradingAccount) ;;
    --language) among="zh en" ;;
    --answer) among="yes no" ;;
    --as) among="running stopped finished rejected queued" ;;
    --accept | --against | --amount | --batch | --day | --dry-run | --encoding | --from | --pace | --reason | --wait) return ;;
    --config | --mapping | --data | --files | --home | --ledger | --out | --profile | --rejects)
        COMPREPLY=($(compgen -f -- "$word"))
        return
        ;;
    *)
        if [[ $word == -* ]]; then
            [ "$COMP_CWORD" -gt 1 ] || command=
            among=$(_algodesk_options "$command")
        elif [ "$COMP_CWORD" = 1 ]; then
            among=$_algodesk_commands
        elif [ "$command" = ledger ] && [ "$COMP_CWORD" = 2 ]; then
            among="init copy limits"
        else
            COMPREPLY=($(compgen -f -- "$word"))
            return
        fi
        ;;
    esac
    COMPREPLY=($(compgen -W "$among" -- "$word"))
}

complete -o filenames -F _algodesk algodesk
