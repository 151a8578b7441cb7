// The texts of the token layer's exceptions.
#include "Trn_Exception.h"

#include <gtest/gtest.h>

namespace {

TEST(ExceptionTest, Texts)
{
    EXPECT_EQ(Trn::Exception("any").what(), "any");
    EXPECT_EQ(Trn::InvalidValueType().what(), "Invalid value() function called for Token object.");
    EXPECT_EQ(Trn::AlreadyExistsException().what(),
              "Attempt to add an object to a collection that already exists in that collection.");
    EXPECT_EQ(Trn::InvalidParameterException().what(), "InvalidParameterExecption");
}

TEST(ExceptionTest, AllDeriveFromException)
{
    EXPECT_THROW(throw Trn::AlreadyExistsException(), Trn::Exception);
    EXPECT_THROW(throw Trn::InvalidParameterException(), Trn::Exception);
    EXPECT_THROW(throw Trn::InvalidValueType(), Trn::Exception);
}

} // namespace
