#include "platform/widgets/IdFilter.h"

#include <QApplication>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace {

QString DescriptionShown(const QString& name, const QString& description)
{
    QLineEdit box;
    box.setObjectName(name);
    box.setAccessibleDescription(description);
    box.show();
    return box.accessibleDescription();
}

// The filter stays installed for the process, so the test without it comes first.
TEST(IdFilter, OnlyWhereTheEnvironmentAsks_NamesStandBehindTheDescription)
{
    qunsetenv("VEXA_IDS");
    platform::InstallIdFilter(*static_cast<QApplication*>(qApp));
    EXPECT_EQ(DescriptionShown(QStringLiteral("txtName"), QStringLiteral("The name")),
              QStringLiteral("The name"));
    qputenv("VEXA_IDS", "1");
    platform::InstallIdFilter(*static_cast<QApplication*>(qApp));
    qunsetenv("VEXA_IDS");
    EXPECT_EQ(DescriptionShown(QStringLiteral("txtName"), QStringLiteral("The name")),
              QStringLiteral("The name #txtName"));
    EXPECT_EQ(DescriptionShown(QStringLiteral("txtName"), QString()), QStringLiteral(" #txtName"));
    EXPECT_EQ(DescriptionShown(QStringLiteral("qt_inner"), QString()), QString());
    EXPECT_EQ(DescriptionShown(QString(), QString()), QString());
}

} // namespace
