#include "platform/widgets/AccessibleRoles.h"

#include "platform/widgets/PageView.h"
#include "platform/widgets/RichTextRuler.h"

#include <QAccessibleWidget>

namespace platform {

namespace {

constexpr const char* kRole = "accessibleRole"; // a property of the control
constexpr double kTwipsPerInch = 1440.0;
constexpr double kStep = 1.0 / 16.0; // inches

/// The ruler as a slider: the place of its chosen mark, in inches.
class RulerAccess : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit RulerAccess(RichTextRuler& ruler)
        : QAccessibleWidget(&ruler, QAccessible::Slider), m_ruler(ruler)
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type != QAccessible::ValueInterface) return QAccessibleWidget::interface_cast(type);
        return static_cast<QAccessibleValueInterface*>(this);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_ruler.ChosenText() : QAccessibleWidget::text(kind);
    }
    QVariant currentValue() const override { return m_ruler.ChosenPosition() / kTwipsPerInch; }
    void setCurrentValue(const QVariant& value) override
    {
        m_ruler.MoveChosen(static_cast<Long>(qRound(value.toDouble() * kTwipsPerInch)));
    }
    QVariant maximumValue() const override { return m_ruler.Width() / kTwipsPerInch; }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return kStep; }

private:
    RichTextRuler& m_ruler;
};

/// The toolkit's own button that empties a box, which has none.
void GiveName(const QString& className, QObject* object)
{
    if (className != QLatin1String("QLineEditIconButton") || object == nullptr) return;
    auto* button = static_cast<QWidget*>(object);
    if (button->accessibleName().isEmpty()) button->setAccessibleName(QStringLiteral("Clear"));
}

QAccessibleInterface* Make(const QString& className, QObject* object)
{
    GiveName(className, object);
    if (auto* pages = qobject_cast<PageView*>(object))
        return new QAccessibleWidget(pages, QAccessible::Document);
    if (auto* ruler = qobject_cast<RichTextRuler*>(object)) return new RulerAccess(*ruler);
    const QVariant role = object == nullptr ? QVariant() : object->property(kRole);
    if (!role.isValid() || !object->isWidgetType()) return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object), static_cast<QAccessible::Role>(role.toInt()));
}

} // namespace

void InstallAccessibleRoles() { QAccessible::installFactory(Make); }

void SetAccessibleRole(QWidget& control, QAccessible::Role role)
{
    control.setProperty(kRole, static_cast<int>(role));
}

void SetAccessibleWords(QWidget& control, const QString& words)
{
    const QString mark = QStringLiteral(" #") + control.objectName();
    control.setAccessibleDescription(control.accessibleDescription().endsWith(mark) ? words + mark : words);
}

} // namespace platform
