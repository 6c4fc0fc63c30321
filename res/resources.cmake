# The resource script with its generated icon and the language packs.
set(TESSEL_ICON ${CMAKE_BINARY_DIR}/res/tessel.ico)
add_custom_command(OUTPUT ${TESSEL_ICON}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/res
  COMMAND sh ${CMAKE_SOURCE_DIR}/res/make_icon.sh ${TESSEL_ICON}
  DEPENDS ${CMAKE_SOURCE_DIR}/res/make_icon.sh
  COMMENT "Drawing the icon")
add_custom_target(tessel_icon DEPENDS ${TESSEL_ICON})

set(TESSEL_RESOURCE_FILE ${CMAKE_SOURCE_DIR}/res/tessel.rc)
set_source_files_properties(${TESSEL_RESOURCE_FILE} PROPERTIES OBJECT_DEPENDS
  "${TESSEL_ICON};${CMAKE_SOURCE_DIR}/res/lang/DE.txt;${CMAKE_SOURCE_DIR}/res/lang/EN.txt;${CMAKE_SOURCE_DIR}/res/tessel.manifest;${CMAKE_SOURCE_DIR}/res/resource.h")
set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} -I${CMAKE_BINARY_DIR}/res -I${CMAKE_SOURCE_DIR}/res")
