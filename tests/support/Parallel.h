#pragma once

#include <QThreadPool>
#include <atomic>

namespace mosaro::test {

/// How many of the calls answer true when four threads make them; each gets its number.
template <class Call>
[[nodiscard]] int rightAtOnce(int calls, const Call& call)
{
    QThreadPool pool;
    pool.setMaxThreadCount(4);
    std::atomic<int> right = 0;
    for (int number = 0; number < calls; ++number)
        pool.start([number, &call, &right] { right += call(number) ? 1 : 0; });
    pool.waitForDone();
    return right;
}

} // namespace mosaro::test
