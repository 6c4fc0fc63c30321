# The resource script with its generated icon and click sound, and the language packs.
# A file made at build time by a script of ours: tessel_generate(<output> <script> <comment>).
function(tessel_generate output script comment)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/res
    COMMAND sh ${CMAKE_SOURCE_DIR}/res/${script} ${output}
    DEPENDS ${CMAKE_SOURCE_DIR}/res/${script}
    COMMENT ${comment})
endfunction()
set(TESSEL_ICON ${CMAKE_BINARY_DIR}/res/tessel.ico)
set(TESSEL_CLICK ${CMAKE_BINARY_DIR}/res/click.wav)
tessel_generate(${TESSEL_ICON} make_icon.sh "Drawing the icon")
tessel_generate(${TESSEL_CLICK} make_click.sh "Making the click sound")
add_custom_target(tessel_generated_resources DEPENDS ${TESSEL_ICON} ${TESSEL_CLICK})

set(TESSEL_RESOURCE_FILE ${CMAKE_SOURCE_DIR}/res/tessel.rc)
# Source file properties hold per directory: every directory that builds the script sets them.
set(TESSEL_RESOURCE_DEPENDS
  "${TESSEL_ICON};${TESSEL_CLICK};${CMAKE_SOURCE_DIR}/res/lang/DE.txt;${CMAKE_SOURCE_DIR}/res/lang/EN.txt;${CMAKE_SOURCE_DIR}/res/tessel.manifest;${CMAKE_SOURCE_DIR}/res/resource.h")
set_source_files_properties(${TESSEL_RESOURCE_FILE} PROPERTIES OBJECT_DEPENDS "${TESSEL_RESOURCE_DEPENDS}")
set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} -I${CMAKE_BINARY_DIR}/res -I${CMAKE_SOURCE_DIR}/res")
