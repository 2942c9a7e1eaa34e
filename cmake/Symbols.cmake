# SPDX-License-Identifier: GPL-3.0-or-later

# The symbols of the screens: the system's name for each, and the drawing that
# shows it here. Only these are embedded.
set(quillon_symbols
    arrow.clockwise arrow-clockwise
    arrow.counterclockwise arrow-counterclockwise
    arrow.down.circle arrow-down-circle
    arrow.down.circle.fill arrow-down-circle-fill
    arrow.down.right.and.arrow.up.left fullscreen-exit
    arrow.up.left.and.arrow.down.right fullscreen
    backward.end.fill skip-start-fill
    bell.fill bell-fill
    bolt.fill lightning-charge-fill
    checkmark check-lg
    checkmark.circle.fill check-circle-fill
    chevron.down chevron-down
    chevron.up chevron-up
    chevron.up.chevron.down chevron-expand
    circle circle
    circle.lefthalf.filled circle-half
    clock.arrow.circlepath clock-history
    clock clock
    clock.fill clock-fill
    exclamationmark.triangle exclamation-triangle
    exclamationmark.triangle.fill exclamation-triangle-fill
    film film
    folder folder
    folder.badge.plus folder-plus
    folder.fill folder-fill
    forward.end.fill skip-end-fill
    gearshape gear
    gearshape.fill gear-fill
    globe globe
    link link-45deg
    list.bullet list-ul
    list.bullet.rectangle.fill collection-play-fill
    list.bullet.rectangle.portrait card-list
    magnifyingglass search
    moon.fill moon-fill
    music.note music-note-beamed
    music.note.list music-note-list
    pause.circle.fill pause-circle-fill
    pause.fill pause-fill
    person.circle.fill person-circle
    photo image
    pip.enter pip
    pip.exit pip-fill
    play.fill play-fill
    play.rectangle.fill play-btn-fill
    plus plus-lg
    speaker.slash.fill volume-mute-fill
    speaker.wave.2.fill volume-up-fill
    speedometer speedometer
    square.and.arrow.down box-arrow-in-down
    stop.fill stop-fill
    sun.max.fill sun-fill
    stop.fill stop-fill
    tray inbox
    waveform soundwave
    xmark x-lg
    xmark.circle.fill x-circle-fill)

find_path(QUILLON_ICONS arrow-down-circle-fill.svg
    PATHS /usr/share/bootstrap-icons/svg /usr/share/icons/bootstrap-icons
          /usr/share/javascript/bootstrap-icons/icons
    REQUIRED NO_DEFAULT_PATH)

# quillon_add_symbols(TARGET): embeds them as :/symbols/<system name>.svg.
function(quillon_add_symbols target)
    set(pairs ${quillon_symbols})
    while(pairs)
        list(POP_FRONT pairs name drawing)
        set(file ${QUILLON_ICONS}/${drawing}.svg)
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name}.svg)
        list(APPEND files ${file})
    endwhile()
    # Drawn here, since the set has none like them.
    foreach(name spinner circle.dotted)
        set(file ${CMAKE_CURRENT_SOURCE_DIR}/shared/${name}.svg)
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name}.svg)
        list(APPEND files ${file})
    endforeach()
    qt_add_resources(${target} symbols PREFIX /symbols FILES ${files})
endfunction()
