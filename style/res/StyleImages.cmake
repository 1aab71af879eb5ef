# The style's bitmap images are drawn at build time by StyleImageGenerator and compiled into
# TavoLibGui under :/res/images/. The rcc-generated code registers them when the library loads.
set(_tavo_style_names
    button_normal_cap_left button_normal_cap_right button_normal_stretch
    button_pressed_cap_left button_pressed_cap_right button_pressed_stretch
    title_cap_left title_cap_right title_stretch
    slider_bar slider_thumb_on
    radiobutton_off radiobutton_on radiobutton-on
    frame_top frame_topleft frame_topright frame_left frame_right
    frame_bottom frame_bottomleft frame_bottomright)
set(_tavo_style_dir ${CMAKE_BINARY_DIR}/style_images)
set(_tavo_style_pngs)
set(_tavo_style_qrc "<RCC>\n  <qresource prefix=\"/res/images\">\n")
foreach(_name IN LISTS _tavo_style_names)
    list(APPEND _tavo_style_pngs ${_tavo_style_dir}/${_name}.png)
    string(APPEND _tavo_style_qrc "    <file>${_name}.png</file>\n")
endforeach()
string(APPEND _tavo_style_qrc "  </qresource>\n</RCC>\n")
file(MAKE_DIRECTORY ${_tavo_style_dir})
file(CONFIGURE OUTPUT ${_tavo_style_dir}/TavoLibStyleImages.qrc CONTENT "${_tavo_style_qrc}")

add_executable(tavo_style_images ${CMAKE_CURRENT_LIST_DIR}/StyleImageGenerator.cpp)
target_link_libraries(tavo_style_images PRIVATE Qt::Gui)
set_target_properties(tavo_style_images PROPERTIES AUTOMOC OFF AUTORCC OFF)
add_custom_command(OUTPUT ${_tavo_style_pngs}
    COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=offscreen
        $<TARGET_FILE:tavo_style_images> ${_tavo_style_dir}
    DEPENDS tavo_style_images
    COMMENT "Drawing the style images"
    VERBATIM)
qt_add_resources(_tavo_style_rcc ${_tavo_style_dir}/TavoLibStyleImages.qrc)
target_sources(TavoLibGui PRIVATE ${_tavo_style_rcc})
