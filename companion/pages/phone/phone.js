// The phone's page: two big buttons and a pad, and a connection that repairs itself.
"use strict";

(() => {
    const texts = phoneTexts[pageLanguage];
    const tabMemory = new PhoneMemory("sessionStorage");
    const phoneMemory = new PhoneMemory("localStorage");

    const page = new PhonePage(texts);
    const clock = new PhoneClock(tabMemory);
    const awake = new PhoneAwake();
    const link = new PhoneLink(tabMemory);
    const identity =
        new PhoneIdentity({ tabMemory, phoneMemory, defaultName: texts.defaultName });
    const room = new PhoneRoom({
        query: () => link.code ? identity.joinQuery(link) : null,
        onState: showState,
        onTapDone: (direction) => page.confirm(direction),
        onTapLost: (direction) => page.sayTapLost(direction),
    });

    function showState(state, stopped) {
        awake.setNeeded(!stopped);
        page.show(state, stopped);
        if (state === "open") clock.start();
    }

    function readLink() {
        if (link.read()) clock.forget();
    }

    // The backend learns a name when the phone joins. Joining again under the same id replaces the
    // earlier connection.
    function rejoin() {
        if (!room.stopped) room.restart();
    }

    function connect() {
        new PhoneButtons((direction) => room.tap(direction));
        new PhoneSettings(identity, { colorNames: texts.colors, onChange: rejoin });
        new PhonePad({
            onSwipe: (direction) => room.tap(direction),
            onPoint: (x, y, visible) => room.point(x, y, visible),
        });
        byId("again").addEventListener("click", () => room.restart());
        window.addEventListener("online", () => room.retryNow());
        window.addEventListener("pageshow", ({ persisted }) => { if (persisted) room.retryNow(); });
        window.addEventListener("hashchange", () => {
            readLink();
            room.restart();
        });
        document.addEventListener("visibilitychange", () => {
            if (document.hidden) return;
            awake.hold();
            room.retryNow();
        });
    }

    readLink();
    connect();
    clock.show();
    room.connect();
})();
