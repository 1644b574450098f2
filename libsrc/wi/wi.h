// The window toolkit. An application includes this header, writes
//
//     int main(int argc, char **argv)
//
// which builds its objects and returns, and is linked with the toolkit. The process starts in the toolkit's frame,
// which splits the command line (the words are argv[1] to argv[argc], argv[0] is a blank), calls main, and then runs
// the message loop: everything further happens in callbacks.
#pragma once

#include "wi/wibutary.h"
#include "wi/wibutton.h"
#include "wi/wicolorbut.h"
#include "wi/wicrop.h"
#include "wi/widovapp.h"
#include "wi/widrawarea.h"
#include "wi/widrect.h"
#include "wi/wieditbox.h"
#include "wi/wieditpage.h"
#include "wi/wiexit.h"
#include "wi/wifilebox.h"
#include "wi/wifilesel.h"
#include "wi/wifocus.h"
#include "wi/wiform.h"
#include "wi/wiframe.h"
#include "wi/wigeneric.h"
#include "wi/wihcmenu.h"
#include "wi/wihlp.h"
#include "wi/wiicon.h"
#include "wi/wiincdecfld.h"
#include "wi/wijournal.h"
#include "wi/wilabel.h"
#include "wi/wilistsel.h"
#include "wi/wimenubar.h"
#include "wi/wimsgbox.h"
#include "wi/windowtable.h"
#include "wi/winumfld.h"
#include "wi/wiobj.h"
#include "wi/wirectary.h"
#include "wi/wistart.h"
#include "wi/wistatus.h"
#include "wi/wistrfld.h"
#include "wi/witogary.h"
#include "wi/wiupdownbut.h"
#include "wi/wiutil.h"
#include "wi/wiynbox.h"

// The application's main, as the frame calls it: a tool chain that found a function named main would start the program
// there, without the frame.
#define main wi_application_main
int wi_application_main(int argc, char **argv);
