// Start-up of an application, and what it may ask of the frame.
#pragma once

// Looks for the toolkit's own option: when *argc is greater than 1 and argv[*argc - 1] is "helpedit", help
// topics become editable and *argc is decremented. In the frame's vector the tokens are argv[1] to
// argv[*argc], so the option counts when exactly one more word follows it.
void wi_main_init(int *argc, char **argv);

// 0 until the application's main has returned, then 1 while the message loop runs.
int isrunning();

// Height in pixels of a line of the toolkit's font on the primary screen.
int getcharheight();

// For applications that were written for a toolkit with a loop and a start-up of its own: nothing to do here.
void wi_run();
void wi_working();
void wi_popmsg_init();
void wi_init_check();
void HCLXmInit();
