// A day of an operator who touches everything in any order, on groups of several shapes.
#include "random_day.h"

namespace {

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
const int SLOWER = 10;
#else
const int SLOWER = 1;
#endif

std::string dayName(const testing::TestParamInfo<Day>& info)
{
    return info.param.name;
}

class ADay : public RandomDay, public testing::WithParamInterface<Day>
{
protected:
    ADay() : RandomDay(GetParam()) {}
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, ADay,
                         testing::Values(Day{"APageOfBlocks", 20, 130, 60, 2000}, Day{"ALongGroup", 21, 1000, 12, 800},
                                         Day{"AWideGroup", 22, 20, 400, 800}, Day{"ASmallGroup", 23, 12, 8, 3000}),
                         dayName);

TEST_P(ADay, KeepsSheetAndFileTogether)
{
    begin();
    check();
    const int events = GetParam().events / SLOWER;
    for (int i = 0; i < events && !HasFailure(); ++i) {
        event();
        check();
    }
    if (HasFailure())
        ADD_FAILURE() << "after: " << recently();
}
