// The opt-in trace: silent by default, scoped lines on std::clog when asked.
#include "KemptUI_Trace.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

namespace {

using KemptUI::TraceScope;

TEST(TraceTest, SilentUnlessAsked)
{
    for (const std::optional<std::string>& value : {std::optional<std::string>(), std::optional<std::string>(""),
                                                   std::optional<std::string>("0")}) {
        tw_test::EnvGuard env(KemptUI::TRACE_VARIABLE, value);
        tw_test::ClogGuard clog;
        {
            TraceScope scope("Quiet");
            scope.line("nothing");
            EXPECT_FALSE(scope.enabled());
        }
        EXPECT_EQ(clog.text(), "");
    }
}

TEST(TraceTest, ScopesAndLines)
{
    tw_test::EnvGuard env(KemptUI::TRACE_VARIABLE, "1");
    tw_test::ClogGuard clog;
    {
        TraceScope scope("Outer");
        scope.line("Found file a.tws");
        TraceScope inner("Inner");
    }
    EXPECT_EQ(clog.text(), "[trace] > Outer\n[trace]   Outer: Found file a.tws\n[trace] > Inner\n[trace] < Inner\n"
                           "[trace] < Outer\n");
}

} // namespace
