include("${CMAKE_CURRENT_LIST_DIR}/simple_gui-targets.cmake")
