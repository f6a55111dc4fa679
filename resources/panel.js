window.electronAPI = {
    showOverlay: function()  { window.webkit.messageHandlers.bridge.postMessage("CMD:showOverlay"); },
    hideOverlay: function()  { window.webkit.messageHandlers.bridge.postMessage("CMD:hideOverlay"); },
    destroyOverlay: function() { window.webkit.messageHandlers.bridge.postMessage("CMD:destroyOverlay"); },
    startBundledBackend: function() { window.webkit.messageHandlers.bridge.postMessage("CMD:startBundledBackend"); },
    stopBundledBackend: function() { window.webkit.messageHandlers.bridge.postMessage("CMD:stopBundledBackend"); },
    sendOverlayData: function(d) { },
    sendParticipantsUpdate: function(d) { },
    sendPptSlide: function(dir, seq, source) {
        const parts = [dir || "", seq == null ? "" : String(seq), source || ""];
        window.webkit.messageHandlers.bridge.postMessage("PPT:" + parts.join("|"));
    },
    sendDebugLog: function(msg) { window.webkit.messageHandlers.bridge.postMessage("DBG:" + msg); },
    connectOverlayWs: function(url, code) { window.webkit.messageHandlers.bridge.postMessage("WSCONN:" + url + "|" + code); },
    requestAwdlBeforeMeeting: function() { window.webkit.messageHandlers.bridge.postMessage("CMD:requestAwdlBeforeMeeting"); },
    enableSlideControl: function() { window.webkit.messageHandlers.bridge.postMessage("CMD:enableSlideControl"); },
    openAccessibilitySettings: function() { window.webkit.messageHandlers.bridge.postMessage("CMD:openAccessibilitySettings"); }
};
