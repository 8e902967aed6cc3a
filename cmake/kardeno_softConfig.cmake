# What find_package(kardeno_soft) reads: the target kardeno_soft::kardeno_soft.
include(${CMAKE_CURRENT_LIST_DIR}/kardeno_softTargets.cmake)

# Compilers of the vendor's form on Windows link through the import library of that form.
if(MSVC OR CMAKE_C_SIMULATE_ID STREQUAL "MSVC" OR CMAKE_CXX_SIMULATE_ID STREQUAL "MSVC")
    get_filename_component(kardeno_soft_lib ${CMAKE_CURRENT_LIST_DIR}/../../kardeno_soft.lib ABSOLUTE)
    get_target_property(kardeno_soft_configurations kardeno_soft::kardeno_soft IMPORTED_CONFIGURATIONS)
    foreach(configuration IN LISTS kardeno_soft_configurations)
        set_target_properties(kardeno_soft::kardeno_soft
            PROPERTIES IMPORTED_IMPLIB_${configuration} ${kardeno_soft_lib})
    endforeach()
endif()
