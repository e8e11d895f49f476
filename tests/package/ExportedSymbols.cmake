# Lists what the library defines for others; only the exported class may be there (beside what every library has).
execute_process(COMMAND ${NM} -DC --defined-only ${LIBRARY} OUTPUT_VARIABLE symbols RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT symbols MATCHES " T AlgoBatchImportParamSetting::getWidgetData")
  message(FATAL_ERROR "The exported class is not there:\n${symbols}")
endif()
set(class "AlgoBatchImportParamSetting")
# The type information of IZelSkin, which has no home of its own, is emitted, weakly, wherever it is used.
set(expected "(non-virtual thunk to )?${class}::|(vtable|typeinfo|typeinfo name) for (${class}|IZelSkin)$|(_edata|_end|__bss_start)$")
# The standard library marks its own as visible to all, those that a shared pointer needs among them.
string(APPEND expected "|typeinfo( name)? for std::|std::_Sp_make_shared_tag::")
if(SANITIZE) # which look at the type of whatever is used
  string(APPEND expected "|typeinfo( name)? for |.*(asan|ubsan|__odr)")
endif()
string(REPLACE "\n" ";" lines "${symbols}")
foreach(line ${lines})
  if(NOT line MATCHES "^[0-9a-f]+ [A-Za-z] (${expected})")
    message(SEND_ERROR "exported beside the class: ${line}")
  endif()
endforeach()
