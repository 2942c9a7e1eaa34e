# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the unmodified tool take the video site's URLs from the local site.

The tool asks extractors in the order of their class names; the last one here
refuses what is left of the site, so that nothing reaches the network.
"""

import os
import pathlib

from yt_dlp.extractor.common import InfoExtractor, SearchInfoExtractor
from yt_dlp.utils import ExtractorError
from yt_dlp.version import __version__

SITE = r'https?://(?:(?:www|m|music)\.)?youtube\.com'


class _LocalSite:
    """What the extractors below share. Their class-level names must differ from
    the built-in ones, which would win otherwise; the shown name is the site's."""

    SHOWN_NAME = 'youtube'

    def __init__(self, *arguments, **options):
        super().__init__(*arguments, **options)
        self.IE_NAME = self.SHOWN_NAME

    def _ask(self, what, name):
        home = pathlib.Path(os.environ['HOME'])
        # As the real site does it since January 2026.
        if (home / '.config/quillon-site-is-strict').exists() and __version__ < '2026.01.31':
            raise ExtractorError('YouTube is no longer supported in this application or device.',
                                 expected=True, video_id=name)
        site = (home / '.config/quillon-site').read_text()
        clients = self._configuration_arg('player_client', ie_key='Youtube')
        answer = self._download_json(f'{site}/api/{what}', name,
                                     query={'id': name, 'client': ','.join(clients)})
        if 'refused' in answer:
            raise ExtractorError(answer['refused'], expected=True, video_id=name)
        return answer

    def _listed(self, answer):
        # As the built-in extractors list them; resolved, they must come back here.
        key = 'Youtube' if self.get_param('extract_flat') else None
        entries = [{**entry, 'ie_key': key} for entry in answer['entries']]
        return self.playlist_result(entries, answer['id'], answer['title'])


class QuillonAPlaylistIE(_LocalSite, InfoExtractor):
    IE_NAME = 'quillon:playlist'
    SHOWN_NAME = 'youtube:tab'
    _VALID_URL = SITE + r'/playlist\?(?:.*&)?list=(?P<id>[^&#]+)'

    def _real_extract(self, url):
        return self._listed(self._ask('playlist', self._match_id(url)))


class QuillonBSearchIE(_LocalSite, SearchInfoExtractor):
    IE_NAME = 'quillon:search'
    SHOWN_NAME = 'youtube:search'
    _SEARCH_KEY = 'ytsearch'

    def _get_n_results(self, query, n):
        answer = self._ask('search', query)
        return self._listed({**answer, 'entries': answer['entries'][:n]})


class QuillonCVideoIE(_LocalSite, InfoExtractor):
    IE_NAME = 'quillon:video'
    _VALID_URL = (rf'(?:{SITE}/watch\?(?:.*&)?v=|https?://youtu\.be/)'
                  r'(?P<id>[^&#?]+)(?:.*[?&]list=(?P<list>[^&#]+))?')

    def _real_extract(self, url):
        video_id, playlist_id = self._match_valid_url(url).group('id', 'list')
        if playlist_id and not self.get_param('noplaylist'):
            return self.url_result(f'https://www.youtube.com/playlist?list={playlist_id}')
        return self._ask('video', video_id)


class QuillonDRestIE(_LocalSite, InfoExtractor):
    IE_NAME = 'quillon:rest'
    _VALID_URL = r'(?:https?://(?:[^/]+\.)?youtube\.com|https?://youtu\.be|:yt).*'

    def _real_extract(self, url):
        raise ExtractorError('The local site has no such page', expected=True)
