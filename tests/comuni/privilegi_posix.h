// Tests of refused access: root is refused nothing, so the test gives its rights up for a while.
#pragma once

#include <QtGlobal>

#include <unistd.h>

class SenzaPrivilegi
{
public:
    SenzaPrivilegi()
    {
        if (m_prima == 0 && ::setresuid(NESSUNO, NESSUNO, 0) != 0)
            qFatal("cannot give up the rights of root");
    }
    ~SenzaPrivilegi()
    {
        if (m_prima == 0 && ::setresuid(0, 0, 0) != 0)
            qFatal("cannot take the rights of root back");
    }
    Q_DISABLE_COPY_MOVE(SenzaPrivilegi)

private:
    static constexpr uid_t NESSUNO = 65534;
    const uid_t m_prima = ::geteuid();
};
