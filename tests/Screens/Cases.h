#pragma once

#include <gmock/gmock.h>

#include <string>

/// Names the instances of a table's test after the `name` of each row.
struct ByName
{
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const
    {
        return row.param.name;
    }
};
