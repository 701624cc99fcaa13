#include "app/visual_style.h"

#include <QApplication>
#include <QProxyStyle>

namespace
{

// What all styles have in common here.
class ShellStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* returned) const override
    {
        // The toolkit's own pictures of ticks and crosses are of no family with ours.
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

    QSize sizeFromContents(ContentsType type,
        const QStyleOption* option,
        const QSize& size,
        const QWidget* widget) const override
    {
        // Else the longest text runs into the arrow.
        constexpr int airBeforeArrow = 8;
        const QSize fitting = QProxyStyle::sizeFromContents(type, option, size, widget);
        return type == CT_ComboBox ? fitting + QSize(airBeforeArrow, 0) : fitting;
    }
};

} // namespace

void applyVisualStyle(const QString& name)
{
    QApplication::setStyle(new ShellStyle(name));
    QApplication::setPalette(QApplication::style()->standardPalette());
}
