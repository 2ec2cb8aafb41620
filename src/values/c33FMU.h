#pragma once

#include "platform/base/Numbers.h"
#include "values/c34NVCTable.h"
#include "values/c35AACTable.h"

#include <memory>
#include <string>

/// One land unit (fire management unit): a row of FMZList and its two tables. Owned by g33FMUs.
class c33FMU
{
public:
    Long ItemKey() const { return m_itemKey; }
    const std::string& ItemName() const { return m_itemName; }
    /// The tables, loaded on first read; they live as long as the land unit. Throw DatabaseError.
    c34NVCTable& NVCTable();
    c35AACTable& AACTable();

    void Initialize(Long key, const std::string& code, const std::string& name);
    /// Deletes the row of FMZList, then every row of OutcomeFMZs, NVCPerAcre and SuppressionPerAcreCost under
    /// the key. The store keeps the object. Throws DatabaseError, also when FMZList has no such row.
    void Delete();

private:
    Long m_itemKey = 0;
    std::string m_fmzCode;
    std::string m_itemName;
    std::unique_ptr<c34NVCTable> m_nvcTable;
    std::unique_ptr<c35AACTable> m_aacTable;
};
