# Runs the catalog check on a catalog with one fault of each kind and
# requires exactly those faults.
execute_process(COMMAND ${CHECK} --lupdate ${LUPDATE} --work ${WORK}
                        --sources ${FIXTURE}/messages.cpp --catalog ${FIXTURE}/messages_ja.ts
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
message("${output}")
if(NOT result EQUAL 1)
  message(FATAL_ERROR "expected exit code 1, got ${result}")
endif()
set(expected
  "\\[Greeter\\] \"Loses %1\": drops %1"
  "\\[Greeter\\] \"Loses <b>bold</b> text\": drops the tag </b>"
  "\\[Greeter\\] \"&Start\": drops the accelerator &S"
  "\\[Greeter\\] \"Left unfinished\": unfinished"
  "\\[Greeter\\] \"Not in the catalog\": missing"
  "\\[Greeter\\] \"Empty\": empty translation"
  "8 texts, 1 catalogs, 6 faults")
foreach(line ${expected})
  if(NOT output MATCHES "${line}")
    message(FATAL_ERROR "no fault reported as: ${line}")
  endif()
endforeach()
