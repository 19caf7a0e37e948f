# Writes the AppStream metainfo file OUT from packaging/org.rosterdesk.RosterDesk.metainfo.xml.in.
# With SCREENSHOTS_URL (the web address where docs/guide/screenshots/ is published) it lists the
# screenshots below, the same pictures the user guide shows and the package installs; software
# centres take screenshots from the web only, so without an address the file lists none.
#
#   cmake -DOUT=<file> [-DSCREENSHOTS_URL=https://...] -P packaging/metainfo.cmake
# (packaging/CMakeLists.txt includes it with the same variables set.)
set(ROSTERDESK_METAINFO_PICTURES
    "frmMain|The main window: the bots the launcher recognises and the profiles made for them"
    "frmEditPlugInSetup|A bot's setup: its game, its folders, the files copied for a match"
    "frmEditGame|A game's folders and how the launcher starts it"
    "frmOptions|The launch options the launcher offers, by category"
    "frmCustomMaps|A custom map list with the titles the launcher shows"
    "frmAddMaps|The maps a game has installed, read from its PAK archives")

set(ROSTERDESK_METAINFO_SCREENSHOTS "")
if(SCREENSHOTS_URL)
    string(REGEX REPLACE "/+$" "" base "${SCREENSHOTS_URL}")
    set(block "  <screenshots>\n")
    set(kind " type=\"default\"")
    foreach(entry IN LISTS ROSTERDESK_METAINFO_PICTURES)
        string(REPLACE "|" ";" parts "${entry}")
        list(GET parts 0 picture)
        list(GET parts 1 caption)
        string(APPEND block "    <screenshot${kind}>\n      <caption>${caption}</caption>\n"
                            "      <image>${base}/${picture}.png</image>\n    </screenshot>\n")
        set(kind "")
    endforeach()
    string(APPEND block "  </screenshots>\n")
    set(ROSTERDESK_METAINFO_SCREENSHOTS "${block}")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/org.rosterdesk.RosterDesk.metainfo.xml.in ${OUT} @ONLY)
