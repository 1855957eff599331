#pragma once

#include "platform/conduit/dde_conduit.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>

#include <functional>

namespace vasclip::test {

using tests::Thrown;
using tests::ThrownBy;

using namespace Qt::StringLiterals;

inline QString Beside(const QString& name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

/// The partner, which ends with its input.
class Partner
{
public:
    explicit Partner(const QStringList& arguments = {})
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(qEnvironmentVariable("EXCHANGE_WINE"), QStringList{Beside(u"exchange_partner.exe"_s)} + arguments);
        m_process.waitForReadyRead(60000);
        EXPECT_TRUE(m_process.readLine().startsWith("ready"));
    }
    ~Partner()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(10000))
            m_process.kill();
    }

private:
    QProcess m_process;
};

inline conduit::DdeOptions Options(int timeLimitMs = 30000)
{
    conduit::DdeOptions options;
    options.wine = qEnvironmentVariable("EXCHANGE_WINE");
    options.bridge = Beside(u"vasclip-bridge.exe"_s);
    options.codePage = 1252;
    options.timeLimitMs = timeLimitMs;
    return options;
}

inline std::unique_ptr<conduit::Conduit> Link(const conduit::DdeOptions& options = Options())
{
    auto link = conduit::MakeDdeConduit(options);
    link->SetLinkTopic(u"KEL|R1"_s);
    return link;
}

inline QString Ask(conduit::Conduit& link, const QString& item)
{
    link.SetLinkMode(2);
    link.SetLinkItem(item);
    link.LinkRequest();
    return link.Text();
}

} // namespace vasclip::test
