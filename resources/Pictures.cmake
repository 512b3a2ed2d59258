# The one list of the pictures: what each is drawn as, in which states it is needed, and which
# widgets show it.
#
# tarvelo_picture(NAME
#     [DRAWN_AS NAME]     the same metaphor has the same picture, whatever it is called
#     [INK colour]        a theme's colour to draw it in; the text colour of a button otherwise
#     [GROUND colour]     the colour of what is cut out; the ground of a button otherwise
#     [STATES state…]     of Pressed, Disabled, Focus, Checked; what has no ink of its own is
#                         always there for a disabled command too
#     [BUTTONS name…]     buttons without a text that show it, with the states Pressed and Focus;
#                         a name that ends with "*" stands for both sides, L and R
#     [CHECKABLE]         these buttons can be checked
#     [BESIDE_TEXT name…]) buttons that have it beside a text, from the program; when pressed it
#                         changes its colour with the text
set(TARVELO_PICTURES)
function(tarvelo_picture name)
    cmake_parse_arguments(PICTURE
        "CHECKABLE" "DRAWN_AS;INK;GROUND" "STATES;BUTTONS;BESIDE_TEXT" ${ARGN})
    if(NOT PICTURE_DRAWN_AS)
        set(PICTURE_DRAWN_AS ${name})
    endif()
    if(NOT PICTURE_INK)
        set(PICTURE_INK buttontext)
        list(APPEND PICTURE_STATES Disabled)
    endif()
    if(NOT PICTURE_GROUND)
        set(PICTURE_GROUND button)
    endif()
    if(PICTURE_BUTTONS)
        list(APPEND PICTURE_STATES Pressed Focus)
    endif()
    if(PICTURE_CHECKABLE)
        list(APPEND PICTURE_STATES Checked)
    endif()
    if(PICTURE_BESIDE_TEXT)
        list(APPEND PICTURE_STATES Pressed)
    endif()
    list(REMOVE_DUPLICATES PICTURE_STATES)
    list(TRANSFORM PICTURE_BUTTONS REPLACE "^(.+)[*]$" "\\1L;\\1R")
    list(APPEND TARVELO_PICTURES ${name})
    set(TARVELO_PICTURES ${TARVELO_PICTURES} PARENT_SCOPE)
    foreach(property DRAWN_AS INK GROUND STATES BUTTONS BESIDE_TEXT)
        set(TARVELO_PICTURE_${name}_${property} ${PICTURE_${property}} PARENT_SCOPE)
    endforeach()
endfunction()

# The screens
tarvelo_picture(Library CHECKABLE BUTTONS buttonList
    BESIDE_TEXT buttonJumpToLibrary)
tarvelo_picture(Positions CHECKABLE BUTTONS buttonPositions)
tarvelo_picture(PDF CHECKABLE BUTTONS buttonPDF)
tarvelo_picture(Settings CHECKABLE BUTTONS buttonSettings)
tarvelo_picture(Help CHECKABLE BUTTONS buttonHelp
    BESIDE_TEXT buttonCountDownInfo)

# The transport
tarvelo_picture(Stop BUTTONS buttonStop)
tarvelo_picture(Pause CHECKABLE BUTTONS buttonPause)
tarvelo_picture(Play CHECKABLE BUTTONS buttonPlay)
tarvelo_picture(Play2 DRAWN_AS Play)
tarvelo_picture(Loop)
tarvelo_picture(Tempo_Minus DRAWN_AS Minus BUTTONS buttonTempoMinus)
tarvelo_picture(Tempo_Plus DRAWN_AS Plus BUTTONS buttonTempoPlus)

# The top frame
tarvelo_picture(Menu BUTTONS toolButtonRightMenu)
tarvelo_picture(FullWidth STATES Pressed Focus)
tarvelo_picture(FullText STATES Pressed Focus)
tarvelo_picture(Emptywatch BUTTONS buttonCountDownEmpty)
tarvelo_picture(Stopwatch BUTTONS buttonCountDownFull)
tarvelo_picture(Reset_Filter BUTTONS buttonResetFilter)
tarvelo_picture(Reset_Selection BUTTONS buttonResetSelection)
tarvelo_picture(Playlist_Mode CHECKABLE BUTTONS buttonPlaylistMode)
tarvelo_picture(Playlist_Manager CHECKABLE BUTTONS buttonPlaylistManager)
tarvelo_picture(Non_Stop CHECKABLE BUTTONS buttonPlaylistNonStop)

# The playlist panels
tarvelo_picture(Open BUTTONS buttonPlaylistOpen*)
tarvelo_picture(Save BUTTONS buttonPlaylistSave*
    BESIDE_TEXT buttonStepEditSave)
tarvelo_picture(Save_As BUTTONS buttonPlaylistSaveAs*)
tarvelo_picture(Remove BUTTONS buttonPlaylistRemove* buttonEditTagRemoveCue buttonEditEventDeleteAll
    BESIDE_TEXT buttonDeletePart buttonRemoveCountDown buttonDeleteDanceEvents)
tarvelo_picture(Copy BUTTONS buttonPlaylistCopyBuffer*)
tarvelo_picture(Copy_Files BUTTONS buttonPlaylistExportAllFiles*)
tarvelo_picture(Entry_Add BUTTONS buttonPlaylistAddEntry* buttonRepListAddEntry)
tarvelo_picture(Entry_Remove BUTTONS buttonPlaylistEntryRemove* buttonRepListDelEntry)
tarvelo_picture(Up BUTTONS buttonPlaylistEntryMoveUp* buttonStepEditPrevious)
tarvelo_picture(Down BUTTONS buttonPlaylistEntryMoveDown* buttonStepEditNext)

# The small buttons of pages and dialogs. All whose names end with Info, Plus or Minus have
# theirs from the style sheet.
tarvelo_picture(Info BUTTONS buttonCurrBpmHelp buttonSuggBpmHelp buttonManBpmHelp
    buttonHelpBrackets buttonHelpLineEnd buttonHelpPartsTrim buttonHelpPartsUpperLowerCase
    buttonHelpReplace buttonHelpSeparators buttonHelpTrim buttonHelpUpperLowerCase)
tarvelo_picture(Plus BUTTONS buttonPlusTime buttonPlusBpm
    BESIDE_TEXT buttonAddCountDown)
tarvelo_picture(Minus BUTTONS buttonMinusTime buttonMinusBpm)
tarvelo_picture(Plus_Plus BUTTONS buttonPlusPlusBpm)
tarvelo_picture(Minus_Minus BUTTONS buttonMinusMinusBpm)
tarvelo_picture(Undo BUTTONS buttonStepEditUndo)
tarvelo_picture(Redo BUTTONS buttonStepEditRedo)
tarvelo_picture(Edit BUTTONS buttonEditEventEdit
    BESIDE_TEXT buttonEditDanceEvents)
tarvelo_picture(Event_Add DRAWN_AS Plus BUTTONS buttonEditEventAdd)
tarvelo_picture(Import BUTTONS buttonEditTagAddCue)
tarvelo_picture(Export BUTTONS buttonEditTagExportCue)
tarvelo_picture(Metronome BUTTONS buttonBpmCalcOpen)
tarvelo_picture(Drum BUTTONS buttonManBpmBpmTicks)
tarvelo_picture(Refresh BUTTONS buttonManBpmResetBpm)

# Menus, messages, buttons with a text
tarvelo_picture(Brush)
tarvelo_picture(Calendar)
tarvelo_picture(Cancel)
tarvelo_picture(Clean)
tarvelo_picture(Document)
tarvelo_picture(Error INK red GROUND window)
tarvelo_picture(Exit
    BESIDE_TEXT buttonStepEditCancel buttonCloseEventList)
tarvelo_picture(ExportCloud)
tarvelo_picture(FactorySettings)
tarvelo_picture(Frownie)
tarvelo_picture(ImportCloud)
tarvelo_picture(Lock)
tarvelo_picture(Move)
tarvelo_picture(Music_File)
tarvelo_picture(OK)
tarvelo_picture(Paste)
tarvelo_picture(Reset_Windows)
tarvelo_picture(Search)
tarvelo_picture(Search+Replace)
tarvelo_picture(Shift_Times)
tarvelo_picture(Show)
tarvelo_picture(Slider)
tarvelo_picture(Tag)
tarvelo_picture(Unlock)
tarvelo_picture(Usb)
tarvelo_picture(Wave)

# What widgets are made of
tarvelo_picture(Check_Off INK grip STATES Disabled Focus)
tarvelo_picture(Check_On INK highlight GROUND highlightedtext STATES Disabled)
tarvelo_picture(Check_Some INK highlight GROUND highlightedtext STATES Disabled)
tarvelo_picture(Radio_Off INK grip STATES Disabled Focus)
tarvelo_picture(Radio_On INK highlight GROUND highlightedtext STATES Disabled)
tarvelo_picture(Arrow_Down INK text STATES Disabled)
tarvelo_picture(Arrow_Up INK text STATES Disabled)
tarvelo_picture(Arrow_Left INK text STATES Disabled)
tarvelo_picture(Arrow_Right INK text STATES Disabled)
tarvelo_picture(Sort_Down DRAWN_AS Arrow_Down INK sectiontext)
tarvelo_picture(Sort_Up DRAWN_AS Arrow_Up INK sectiontext)
tarvelo_picture(Clear INK text)
tarvelo_picture(Size_Grip INK grip)
