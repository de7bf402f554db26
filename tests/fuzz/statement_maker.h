// SQL that damages a recipe file: values where they do not belong, tables made of something else, and what else SQLite
// lets a file hold.
#ifndef STATEMENT_MAKER_H
#define STATEMENT_MAKER_H

#include <random>
#include <string>

/// One statement, without a line feed.
std::string makeStatement(std::mt19937& random);

#endif
