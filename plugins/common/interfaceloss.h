#ifndef AIRLUME_PLUGINS_COMMON_INTERFACELOSS_H
#define AIRLUME_PLUGINS_COMMON_INTERFACELOSS_H

/// Tells a back end when a query for networks has to fail although it need not: once, after there
/// was a time without any interface since the last answer.
///
/// Airlume stops showing data when no interface is listed, and starts again only after a failed
/// query, with which it looks for an interface anew. Without that failure it would go on asking,
/// and show nothing for ever. A pure state; one thread at a time.
class InterfaceLoss
{
public:
    /// The interfaces have been listed.
    void listed(bool any)
    {
        if (!any)
            m_pending = m_answering;
    }

    /// A query that could be answered or not: what its result has to be.
    bool answer(bool possible)
    {
        m_answering = possible && !m_pending;
        m_pending = false;
        return m_answering;
    }

private:
    bool m_answering = false; ///< The last query succeeded.
    bool m_pending = false;   ///< Since then there was a time without any interface.
};

#endif
