#pragma once

#include "platform/conduit/conduit.h"

#include <QMap>
#include <QStringList>

namespace vasclip::app {

/// Passes everything through to a conduit and writes down what was sent to the report: the last text of each
/// field and the last picture of each object. The tour compares it with the report that the forms program
/// saved.
class LinkRecorder : public conduit::Conduit
{
public:
    explicit LinkRecorder(conduit::Conduit& link)
        : m_link(link)
    {}

    [[nodiscard]] const QMap<QString, QString>& Cells() const { return m_cells; }
    [[nodiscard]] const QMap<QString, QString>& Images() const { return m_images; }
    [[nodiscard]] int Pokes() const { return m_pokes; }

    [[nodiscard]] QString Text() const override { return m_link.Text(); }
    void SetText(const QString& text) override { m_link.SetText(text); }
    [[nodiscard]] QString LinkTopic() const override { return m_link.LinkTopic(); }
    void SetLinkTopic(const QString& topic) override { m_link.SetLinkTopic(topic); }
    [[nodiscard]] QString LinkItem() const override { return m_link.LinkItem(); }
    void SetLinkItem(const QString& item) override { m_link.SetLinkItem(item); }
    [[nodiscard]] qint16 LinkMode() const override { return m_link.LinkMode(); }
    void SetLinkMode(qint16 mode) override { m_link.SetLinkMode(mode); }
    void LinkRequest() override { m_link.LinkRequest(); }
    void LinkPoke() override;
    void LinkExecute(const QString& command) override;

private:
    conduit::Conduit& m_link;
    QMap<QString, QString> m_cells;
    QMap<QString, QString> m_images;
    int m_pokes = 0;
};

} // namespace vasclip::app
