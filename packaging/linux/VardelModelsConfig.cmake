include(${CMAKE_CURRENT_LIST_DIR}/VardelModelsTargets.cmake)
