#include "Velbase/common/common_smart_ptr.h"

void velbase_private::delete_count(std::int32_t* count) noexcept
{
    delete count;
}
