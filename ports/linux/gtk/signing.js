// Signs what the main frame posts. On the handlers' prototype, which lasts: the object of one
// handler may be collected and made anew.
(handler, signature) => {
    const prototype = Object.getPrototypeOf(window.webkit.messageHandlers[handler]);
    const post = prototype.postMessage;
    prototype.postMessage = function(body) { return post.call(this, [signature, body]); };
}
