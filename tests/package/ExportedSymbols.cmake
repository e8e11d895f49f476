# Lists what the library defines for others; only the exported class may be there (beside what every library has).
execute_process(COMMAND ${NM} -DC --defined-only ${LIBRARY} OUTPUT_VARIABLE symbols RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT symbols MATCHES "AlgoBatchImportParamSetting::getWidgetData")
  message(FATAL_ERROR "The exported class is not there:\n${symbols}")
endif()
string(REPLACE "\n" ";" lines "${symbols}")
foreach(line ${lines})
  # Type information of classes without a home of their own is emitted, weakly, wherever it is used.
  if(NOT line MATCHES "AlgoBatchImportParamSetting| V typeinfo | V vtable for IZelSkin| (_edata|_end|__bss_start|_init|_fini)$|asan|ubsan|__odr")
    message(SEND_ERROR "exported beside the class: ${line}")
  endif()
endforeach()
