"""What the calls of the site's pages "coming from" work on, and how the differences show that the pages state."""
