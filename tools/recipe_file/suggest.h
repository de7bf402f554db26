// "Did you mean": the nearest of the known names.
#ifndef SUGGEST_H
#define SUGGEST_H

#include <string>
#include <vector>

/// ", did you mean "create"?" or the empty string where nothing is near. Case does not count.
std::string didYouMean(const std::string& given, const std::vector<std::string>& known);

#endif
