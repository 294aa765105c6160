// The content of a window that fills a large screen.
WindowPage {
    width: 1920
    height: 1080
}
