#pragma once

#include "platform/base/Collection.h"
#include "platform/base/Numbers.h"
#include "platform/controls/ListContents.h"
#include "values/c38SRType.h"

#include <memory>

/// The file's master list of resource types in list order, loaded on first use. All throw DatabaseError.
namespace g38SRTypes {

/// Throws MissingMember.
std::shared_ptr<c38SRType> GetSRType(Long key);
const platform::Collection<std::shared_ptr<c38SRType>>& SRTypeCollection();
/// Clears the list and adds each type's LongName with its ItemKey.
void AddItem(platform::ListContents& list);
/// Drops the types; the next use reads the file again.
void ReleaseSRTypes();

} // namespace g38SRTypes
