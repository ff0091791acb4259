# Starts the real program in an empty home, without a display.
if(TARGET mosaro AND TARGET mosaroctl)
    mosaro_add_script_test(shell.end_to_end shell/end_to_end.py "$<TARGET_FILE:mosaro>" "$<TARGET_FILE:mosaroctl>")
endif()
