// Where a panel keeps the files of its project; the place is fixed, and plug-ins know it too.
#ifndef PROJECT_FOLDER_H
#define PROJECT_FOLDER_H

constexpr char PROJECT_FOLDER[] = "/usr/tabrix/project";

#endif
