#include "core/sha256.h"

#include "core/error.h"
#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

// The examples of the standard that defines the algorithm.
TEST(Sha256_Of_Bytes, Known_Vectors_Come_Out)
{
    EXPECT_EQ(Sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(Sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(Sha256(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256_Of_A_File, A_File_Of_Many_Windows_Has_The_Digest_Of_Its_Bytes)
{
    const Temporary_Directory place;
    Write_Whole(place / "long", std::string(1000000, 'a'));
    Write_Whole(place / "empty", "");

    EXPECT_EQ(Sha256_Of_File(place / "long"), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
    EXPECT_EQ(Sha256_Of_File(place / "empty"), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Sha256_Of_A_File, A_Missing_File_And_A_Directory_Are_Told)
{
    const Temporary_Directory place;

    EXPECT_THROW(Sha256_Of_File(place / "gone"), File_Error);
    EXPECT_THROW(Sha256_Of_File(place.Path()), File_Error);
}

} // namespace orvel
