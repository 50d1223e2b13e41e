#include "crowd.h"

#include <QTest>

void runCrowd(int count, int atOnce, const MakeMember &make,
              const std::function<void(int index, CrowdMember &member)> &over)
{
    struct Place
    {
        int index = -1;
        std::unique_ptr<CrowdMember> member;
    };
    std::vector<Place> places(std::size_t(qMin(count, atOnce)));
    int next = 0;
    int open = count;
    while (open > 0) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            Place &place = places[i];
            if (place.member && place.member->isOver()) {
                over(place.index, *place.member);
                place.member.reset();
                --open;
            }
            if (!place.member && next < count) {
                place.index = next++;
                place.member = make(place.index, int(i));
                place.member->start();
                // Creating a job may take a while; process the events of the others.
                QTest::qWait(1);
            }
        }
        QTest::qWait(20);
    }
}
