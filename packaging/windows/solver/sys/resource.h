// A header that METIS names and Windows has not; nothing of it is used.
