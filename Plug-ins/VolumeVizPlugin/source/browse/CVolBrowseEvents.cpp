#include "CVolBrowseEvents.h"

#include "CVolBrowserInfo.h"

#include <utility>

CVolBrowseStartEvent::CVolBrowseStartEvent(const QString& text)
    : QEvent(static_cast<QEvent::Type>(eventType))
    , m_text(text)
{}

CVolBrowseProgressEvent::CVolBrowseProgressEvent(const QString& folder, std::int32_t step, std::int32_t total)
    : QEvent(static_cast<QEvent::Type>(eventType))
    , m_folder(folder)
    , m_step(step)
    , m_total(total)
{}

CVolBrowseOneFileCompltdEvent::CVolBrowseOneFileCompltdEvent(std::unique_ptr<CVolBrowserInfo> info)
    : QEvent(static_cast<QEvent::Type>(eventType))
    , m_info(std::move(info))
{}

CVolBrowseOneFileCompltdEvent::~CVolBrowseOneFileCompltdEvent() = default;

std::unique_ptr<CVolBrowserInfo> CVolBrowseOneFileCompltdEvent::takeInfo()
{
    return std::move(m_info);
}

CVolBrowseEndEvent::CVolBrowseEndEvent(const QString& text)
    : QEvent(static_cast<QEvent::Type>(eventType))
    , m_text(text)
{}
