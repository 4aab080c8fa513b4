// Nothing but the headers that the tests share, so that they are compiled once.
