# The real mosaroctl as a process: signals, kills, locks, disks.
if(TARGET mosaroctl)
    mosaro_add_script_test(ctl.end_to_end ctl/end_to_end.py $<TARGET_FILE:mosaroctl>)
endif()
