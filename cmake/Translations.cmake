# English texts for the message keys: compiled from .ts to .qm and built into mosaro_base as ":/strings/".
set(MOSARO_TS "${PROJECT_SOURCE_DIR}/resources/strings/mosaro_en.ts")
set(MOSARO_QM "${PROJECT_BINARY_DIR}/strings/mosaro_en.qm")
get_target_property(MOSARO_LRELEASE Qt6::lrelease IMPORTED_LOCATION)
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/strings")
add_custom_command(OUTPUT "${MOSARO_QM}"
    COMMAND "${MOSARO_LRELEASE}" -silent -idbased "${MOSARO_TS}" -qm "${MOSARO_QM}"
    DEPENDS "${MOSARO_TS}"
    COMMENT "Compiling the string resource")
