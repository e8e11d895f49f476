"""The rooms that decide about money: their files, and the test programs that are to notice a fault in them."""

ROOMS = {
    "amounts": (["amounts/*.cpp"], ["amounts_test", "dialog_test"]),
    "schema": (["schema/*.cpp", "strategy/*.cpp"], ["schema_test", "strategy_test", "import_test", "properties_test"]),
    "import": (["import/*.cpp"], ["import_test", "properties_test", "desk_check_test"]),
    "validation": (["validation/*.cpp"], ["validation_test", "dialog_test"]),
    "guard": (["ledger/guard/*.cpp"], ["ledger_test", "harmful_test"]),
    "ledger": (["ledger/values/*.cpp", "ledger/draft/*.cpp", "ledger/operations/*.cpp"], ["ledger_test", "batch_test"]),
    "verdict": (["desk/verdict/*.cpp"], ["harmful_test", "runner_test"]),
    "check": (["embedded_host/table_check/*.cpp"], ["table_check_test", "harmful_test"]),
    "gateway": (
        ["gateway/messages/*.cpp", "gateway/reports/*.cpp", "gateway/recovery/*.cpp", "gateway/profile/*.cpp"],
        ["gateway_test"],
    ),
    "reader": (
        [
            "embedded_host/table_reader/shared/Number*.cpp",
            "embedded_host/table_reader/shared/SheetRows.cpp",
            "embedded_host/table_reader/xls/XlsSheet.cpp",
        ],
        ["table_reader_test"],
    ),
}
