// The command line: what the commands are called, their options, their help, how they end.
#ifndef APPLICATION_H
#define APPLICATION_H

/// Runs one command; returns the process's exit code.
int runApplication(int argc, char** argv);

#endif
